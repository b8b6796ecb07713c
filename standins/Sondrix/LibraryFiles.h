// The files beside the library by which a package changes what it does.
#pragma once

#include "standins/discovery/Bytes.h"
#include "standins/discovery/OemTable.h"

namespace sondrix {

// The community of SNMP: the first line of Community.txt, "public" without it.
discovery::Bytes ReadCommunity();

// The makers by their numbers, from OemBytes.txt; none without it.
discovery::OemTable ReadMakers();

}  // namespace sondrix
