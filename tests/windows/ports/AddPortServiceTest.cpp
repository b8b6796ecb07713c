#include <windows.h>

#include <winspool.h>

#include <cstring>

#include "ports/AddPortService.h"
#include "resources/resource.h"
#include "tests/windows/world/AddPortPageWorld.h"
#include "tests/windows/world/PatchedExport.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FakePort {
    const wchar_t* name;
    const wchar_t* description;
};

std::vector<FakePort> systemPorts;
std::vector<std::wstring> servers;

// As the function is documented: without room it says how much it wants, and the texts are the buffer's.
BOOL WINAPI TellPorts(LPWSTR server, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
    servers.push_back(std::wstring(server) + L"/" + std::to_wstring(level));
    *count = 0;
    *needed = static_cast<DWORD>(systemPorts.size() * sizeof(PORT_INFO_2W));
    if (size < *needed || systemPorts.empty()) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    auto* record = reinterpret_cast<PORT_INFO_2W*>(buffer);
    for (const FakePort& port : systemPorts) {
        *record++ = {.pPortName = const_cast<wchar_t*>(port.name),
                     .pDescription = const_cast<wchar_t*>(port.description)};
    }
    *count = static_cast<DWORD>(systemPorts.size());
    return TRUE;
}

class AddPortServiceTest : public AddPortPageWorld {
protected:
    AddPortServiceTest() { servers.clear(); }

    // Runs the service on a system with these ports.
    void Run(std::vector<FakePort> ports) {
        systemPorts = std::move(ports);
        const PatchedExport enumeration("EnumPortsW", &TellPorts);
        EXPECT_EQ(service.DoRun(), 0U);
    }

    AddPortService service{&page, Settings(), DriverRecords()};
};

TEST_F(AddPortServiceTest, ShowsThePortsOfTheSystem) {
    Open();
    Run({{L"LPT1:", L"Local Port"}, {L"COM1:", nullptr}, {L"A", L""}});
    ASSERT_EQ(Rows(), 3);
    EXPECT_EQ(Cell(0, 0) + L"/" + Cell(0, 1), L"LPT1:/Local Port");
    EXPECT_EQ(Cell(1, 0) + L"/" + Cell(1, 1), L"COM1:/");
    EXPECT_EQ(Cell(2, 0) + L"/" + Cell(2, 1), L"A/");
    EXPECT_THAT(servers, ElementsAre(L"/2", L"/2"));
}

TEST_F(AddPortServiceTest, ShowsWhatHasChangedAtTheNextEntry) {
    Open();
    Run({{L"LPT1:", L""}});
    Run({{L"LPT1:", L""}, {L"Added", L""}});
    ASSERT_EQ(Rows(), 2);
    EXPECT_EQ(Cell(1, 0), L"Added");
}

TEST_F(AddPortServiceTest, ShowsNothingForASystemWithoutPorts) {
    Open();
    Run({{L"LPT1:", L""}});
    Run({});
    EXPECT_EQ(Rows(), 0);
}

TEST_F(AddPortServiceTest, OffersThePrinterDriversOnly) {
    AddDriver(L"mono.msi", L"SERVICEMONO").properties[L"DRIVERNAME"] = L"Mono";
    AddDriver(L"color.msi", L"SERVICECOLOR").properties[L"DRIVERNAME"] = L"Color";
    AddDriver(L"scan.msi", L"SCAN").properties[L"DRIVERNAME"] = L"Scan";
    AddDriver(L"fax.msi", L"Fax").properties[L"DRIVERNAME"] = L"Fax";
    BuildCatalogues();
    Open();
    Run({});
    EXPECT_THAT(Drivers(), testing::UnorderedElementsAre(L"Mono", L"Color"));
    Run({});
    EXPECT_EQ(Drivers().size(), 2U);
}

TEST_F(AddPortServiceTest, LeavesThePageWithoutDriversWhereThePackageHasNone) {
    Open();
    Show();
    Run({});
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_FRAME));
}

TEST_F(AddPortServiceTest, FillsThePortsAloneInAPredefinedConfiguration) {
    AddDriver(L"mono.msi", L"CONFIGMONO");
    BuildCatalogues();
    Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
    Open();
    Run({{L"LPT1:", L""}});
    EXPECT_THAT(Drivers(), IsEmpty());
    EXPECT_EQ(Rows(), 1);
}

TEST_F(AddPortServiceTest, RunsWithoutAPage) {
    AddPortService alone(nullptr, Settings(), DriverRecords());
    systemPorts = {{L"LPT1:", L""}};
    const PatchedExport enumeration("EnumPortsW", &TellPorts);
    EXPECT_EQ(alone.DoRun(), 0U);
    EXPECT_EQ(servers.size(), 2U);
}

}  // namespace
