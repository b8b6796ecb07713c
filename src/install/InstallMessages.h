// What the MSI library tells while it works, and the boxes for its error codes.
#pragma once

#include <cstdint>

// The library's callback, on the library's thread. Takes a message document and gives the answer to it.
std::int32_t OnInstallMessage(const wchar_t* message);

// Shows the box for an error code and waits for it, unless this is the optional run. True if the error stops
// the run.
bool ShowErrorDialog(std::uint32_t code);
