#include "tests/wizard/NetworkPageTest.h"

#include <windows.h>

#include <commctrl.h>

#include "resources/resource.h"
#include "tests/fakes/TextLines.h"

namespace fs = std::filesystem;

void NetworkPageTest::SetUp() {
    PageTest::SetUp();
    UseNetwork(L"complete", L"complete");
    for (const wchar_t* const key :
         {L"DISCOVERED_LIST_COLUMN_SEARCHING", L"DISCOVERED_LIST_COLUMN_MODEL",
          L"DISCOVERED_LIST_COLUMN_IPADDRESS", L"DISCOVERED_LIST_COLUMN_PRINTER", L"NO_PRINTER_FOUND",
          L"COLOR", L"MONO", L"SELECT_PRINT_TEXT", L"SELECT_PRINTSCAN_TEXT", L"DOWNLOAD_INSTALL_TITLE"}) {
        tree.SetText(key, key);
    }
    UseDiscovery();
}

void NetworkPageTest::UseDiscovery(const std::wstring& further) {
    tree.SetSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><USB_SUPPORTED>1</USB_SUPPORTED>"
        L"<WIN8_DRVTYPES>MONO1;COLOR1;NONE1;SCAN</WIN8_DRVTYPES><WIN8_MONO_DEFAULT>MONO1</WIN8_MONO_DEFAULT>"
        L"<WIN8_COLOR_DEFAULT>COLOR1</WIN8_COLOR_DEFAULT><WIN8_NO_COMM_DEFAULT>NONE1</WIN8_NO_COMM_DEFAULT>" +
        further);
}

void NetworkPageTest::Script(const std::vector<std::wstring>& fields) const {
    EXPECT_TRUE(AppendText((tree.ProgramFolder() / L"Network.script").wstring(), JoinFields(fields)));
}

void NetworkPageTest::AddDevice(const std::wstring& address, const std::wstring& series,
                                const std::wstring& moreTags) const {
    Script({L"document", Element(L"IPADDRESS", address) + Element(L"SERIESSTRID", series) + moreTags});
}

void NetworkPageTest::AddFourDevices() const {
    int number = 0;
    for (const wchar_t* const series : {L"A", L"B", L"C", L"D"}) {
        const std::wstring digit = std::to_wstring(++number);
        AddDevice(L"10.0.0." + digit, series,
                  Element(L"IPNAME", L"host" + digit) + Element(L"1284STRID", L"Model " + digit));
    }
}

void NetworkPageTest::AddDriver(const std::wstring& identifier) {
    tree.Add({.path = L"Drivers\\x64\\" + identifier + L".msi",
              .properties = Element(L"ProductName", identifier) + Element(L"DRIVERID", identifier) +
                            Element(L"DRIVERNAME", identifier + L" driver")});
}

void NetworkPageTest::UseNetwork(const std::wstring& sondrix, const std::wstring& quelmar) {
    const auto use = [&](const std::wstring& name, const std::wstring& build) {
        fs::remove(tree.ProgramFolder() / name);
        if (build.empty()) return;
        fs::copy_file(BuildFolder() / L"tests" / L"fakes" / build / name, tree.ProgramFolder() / name);
    };
    use(L"Sondrix.dll", sondrix);
    use(L"Quelmar.dll", quelmar);
}

void NetworkPageTest::StartWithRows(std::size_t count) {
    StartOn(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForRows(count));
}

bool NetworkPageTest::WaitForRows(std::size_t count) const {
    return WaitUntil([&] { return Column(0).size() == count; });
}

bool NetworkPageTest::WaitForHeading(const std::wstring& heading) const {
    return WaitUntil([&] { return wizard.HeadingOf(wizard.FindControl(IDC_DISCOVERY_LIST), 0) == heading; });
}

std::vector<std::wstring> NetworkPageTest::Column(int column) const {
    const HWND list = wizard.FindControl(IDC_DISCOVERY_LIST);
    std::vector<std::wstring> cells;
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) cells.push_back(wizard.CellOf(list, row, column));
    return cells;
}

void NetworkPageTest::SelectRow(int row) const {
    wizard.SelectRow(wizard.FindControl(IDC_DISCOVERY_LIST), row);
    EXPECT_EQ(SelectedRow(), row);
}

int NetworkPageTest::SelectedRow() const {
    return static_cast<int>(SendMessageW(wizard.FindControl(IDC_DISCOVERY_LIST), LVM_GETNEXTITEM,
                                         static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void NetworkPageTest::ClickHeading(int column) const {
    constexpr int insideHeading = 10;
    const HWND list = wizard.FindControl(IDC_DISCOVERY_LIST);
    int x = insideHeading;
    for (int before = 0; before < column; ++before) {
        x += static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(before), 0));
    }
    const HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, insideHeading));
    SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(x, insideHeading));
}

std::vector<LibraryCall> NetworkPageTest::NetworkCalls(const std::wstring& name) const {
    std::vector<LibraryCall> calls = ReadCalls((tree.ProgramFolder() / L"Network.record").wstring());
    std::erase_if(calls, [&](const LibraryCall& call) { return call.name != name; });
    return calls;
}

bool NetworkPageTest::WaitForSearches(std::size_t count) const {
    return WaitUntil([&] { return Searches().size() == count; });
}

std::vector<std::wstring> NetworkPageTest::Searches() const {
    std::vector<std::wstring> documents;
    for (const LibraryCall& call : NetworkCalls(L"DiscoverW"))
        documents.push_back(call.Argument(L"document"));
    return documents;
}
