// The system's own reading of internet addresses.
#pragma once

#include <string>

#include "framework/Handles.h"

// Reads many addresses: holds the system's library, which a single one loads.
class IpAddressReader {
public:
    IpAddressReader();

    // 1 if the text is an IPv4 or an IPv6 address as the system reads it, another number if not. A system
    // without the function is noted in the log and returns 0.
    int Read(const std::wstring& text) const;

private:
    using Conversion = int(__stdcall*)(int family, const wchar_t* text, void* address);

    Library network;
    Conversion convert = nullptr;
};

// The same for one text.
int IsValidIpAddress(const std::wstring& text);
