// A walk to the page of the discovered devices, over a network that scripted libraries play.
#pragma once

#include <string>
#include <vector>

#include "tests/wizard/PageTest.h"

class NetworkPageTest : public PageTest {
protected:
    void SetUp() override;

    // Settings that lead straight to the page of the devices.
    void UseDiscovery(const std::wstring& further = {});
    // Adds a line to the script of the network.
    void Script(const std::vector<std::wstring>& fields) const;
    void AddDevice(const std::wstring& address, const std::wstring& series,
                   const std::wstring& moreTags = {}) const;
    // Four devices of the series A to D at 10.0.0.1 to 10.0.0.4; D is the one that the page proposes.
    void AddFourDevices() const;
    void AddDriver(const std::wstring& identifier);
    // Lays the named builds of the two libraries beside the program; an empty name stands for none.
    void UseNetwork(const std::wstring& sondrix, const std::wstring& quelmar);

    // A file that opens a gate of the script.
    std::wstring Gate(const std::wstring& name) const { return (tree.Root() / name).wstring(); }
    void Open(const std::wstring& gate) { tree.WriteFile(gate, {}); }

    // Starts the program and waits until the page shows so many devices.
    void StartWithRows(std::size_t count);
    bool WaitForRows(std::size_t count) const;
    bool WaitForHeading(const std::wstring& heading) const;
    std::vector<std::wstring> Column(int column) const;
    void SelectRow(int row) const;
    int SelectedRow() const;
    void ClickHeading(int column) const;

    // The calls to the two libraries, in their order.
    std::vector<LibraryCall> NetworkCalls(const std::wstring& name) const;
    bool WaitForSearches(std::size_t count) const;
    // The search documents of the runs so far.
    std::vector<std::wstring> Searches() const;
};
