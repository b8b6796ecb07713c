// Printers that other computers share.
#pragma once

#include <string>

// Whether the network knows a shared printer under exactly this path, in the same case. Asks the network and
// waits for its answer; a failure of any kind counts as no.
bool IsSharedPrinter(const std::wstring& path);
