// GDI+ with what its headers take for granted: property ids, and min and max as unqualified functions.
#pragma once

#include <algorithm>
using std::max;
using std::min;

// clang-format off
#include <objidl.h>
#include <propidl.h>
#include <gdiplus.h>
// clang-format on
