// Asks the system for the addresses of a name, without waiting longer than wanted.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "standins/discovery/NetworkAddress.h"

namespace discovery {

// Returns the addresses of a host; none where the system knows none, where it takes longer than that many
// milliseconds, or once the event is set. The system may go on asking: a thread of its own waits for it and
// keeps this library loaded.
std::vector<NetworkAddress> ResolveHostName(const std::wstring& name, HANDLE cancelled, DWORD patience);

}  // namespace discovery
