// Security attributes that grant everyone full access.
#pragma once

#include <vector>

#include "CommonLib/Security.h"
#include "framework/Handles.h"

// Needed only while an object is created with its attributes; it may go straight after.
class SecurityEveryone : public Security {
public:
    // Throws Win32Exception.
    SecurityEveryone();

private:
    void AllowEveryone();

    // Declared so that they are freed in the order: identifier, list, descriptor.
    LocalMemory descriptor;
    std::vector<unsigned char> acl;
    Sid sid;
};
