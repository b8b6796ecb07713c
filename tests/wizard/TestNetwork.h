// A network with shared folders and printers, which the system asks for the program.
#pragma once

#include <windows.h>

#include <string>

// Stands in the system's list of networks for as long as this object lives.
class TestNetwork {
public:
    TestNetwork();
    TestNetwork(const TestNetwork&) = delete;
    TestNetwork& operator=(const TestNetwork&) = delete;
    ~TestNetwork();

    // Adds a share of that resource type, under the name as the network writes it.
    void Add(const std::wstring& path, DWORD type = RESOURCETYPE_PRINT) const;
};
