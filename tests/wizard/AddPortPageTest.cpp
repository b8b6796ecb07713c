// A port by hand, from the page to what the driver's installation is told.

#include "resources/resource.h"
#include "settings/TagDocument.h"
#include "tests/wizard/PageTest.h"
#include "tests/wizard/TestNetwork.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr wchar_t portsKey[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";

// A port of the system for as long as this object lives.
class SystemPort {
public:
    explicit SystemPort(std::wstring portName) : name(std::move(portName)) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, portsKey, name.c_str(), REG_SZ, L"", sizeof(wchar_t));
    }
    SystemPort(const SystemPort&) = delete;
    SystemPort& operator=(const SystemPort&) = delete;
    ~SystemPort() { RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, portsKey, name.c_str()); }

private:
    std::wstring name;
};

// The entries of the list of kinds.
enum class Kind { Existing, Network, Shared };

class AddPortPageTest : public PageTest {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(std::wstring(further) + L"<DIALOG_ADD_PORT>true</DIALOG_ADD_PORT>");
        tree.Add({.path = L"Drivers\\x64\\mono.msi",
                  .properties = Element(L"ProductName", L"mono") + Element(L"DRIVERID", L"MONO") +
                                Element(L"DRIVERNAME", L"Mono printer")});
        for (const wchar_t* key : {L"DISCOVERED_PORTS", L"IP_PORT", L"UNC_PORT"}) tree.SetText(key, key);
        tree.SetText(L"DUP_PORT_TEXT", L"There is one.");
        tree.SetText(L"INVALID_NET_PATH_TEXT", L"No such printer.");
    }

    void StartOnPage(Kind kind) {
        const HWND kinds = StartOn(IDC_ADD_PORT_KIND);
        SendMessageW(kinds, CB_SETCURSEL, static_cast<WPARAM>(kind), 0);
        PostMessageW(GetParent(kinds), WM_COMMAND, MAKEWPARAM(IDC_ADD_PORT_KIND, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(kinds));
    }
    void Enter(int field, const std::wstring& text) const {
        SendMessageW(wizard.WaitForControl(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void SelectPort(const std::wstring& name) const {
        const HWND list = wizard.WaitForControl(IDC_ADD_PORT_LIST);
        EXPECT_TRUE(WaitUntil([&] { return RowOf(list, name) >= 0; })) << "no such port";
        wizard.SelectRow(list, RowOf(list, name));
    }
    int RowOf(HWND list, const std::wstring& name) const {
        const auto rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
        for (int row = 0; row < rows; ++row) {
            if (wizard.CellOf(list, row, 0) == name) return row;
        }
        return -1;
    }
    // The value that the driver's installation is told.
    std::wstring Told(const std::wstring& tag) const {
        return TagDocument::ValueOf(TagDocument::ValueOf(CommandOf(L"mono.msi"), L"DEVICE"), tag);
    }
    // The page empties the field only after its box has gone.
    bool IsRefused(int field) const {
        return WaitUntil([&] { return TextOf(field).empty() && !IsEnabled(IDOK); });
    }
    void GoOn() {
        wizard.Press(IDOK);
        CloseOnFinishPage();
    }

    static constexpr wchar_t further[] =
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><WIN8_DRVTYPES>MONO</WIN8_DRVTYPES>"
        L"<WIN8_NO_COMM_DEFAULT>MONO</WIN8_NO_COMM_DEFAULT>";
};

TEST_F(AddPortPageTest, HandsAPortOfTheSystemToTheDriver) {
    const SystemPort port(L"Workroom");
    StartOnPage(Kind::Existing);
    EXPECT_EQ(wizard.Focus(), wizard.FindControl(IDC_ADD_PORT_KIND));
    SelectPort(L"Workroom");
    GoOn();
    EXPECT_EQ(Told(L"PORT_NAME"), L"Workroom");
    EXPECT_EQ(Told(L"PORT_TYPE"), L"Local Port");
    EXPECT_EQ(Told(L"ADD_PORT"), L"");
    EXPECT_EQ(Told(L"SET_DEFAULT"), L"true");
    EXPECT_EQ(FinalSetting(L"SELECTED_DRIVER"), ProgramPathOf(L"Drivers\\x64\\mono.msi"));
}

TEST_F(AddPortPageTest, HandsANewNetworkPortToTheDriver) {
    StartOnPage(Kind::Network);
    Enter(IDC_ADD_PORT_NAME, L"Office & \"100%\" <1>");
    Enter(IDC_ADD_PORT_ADDRESS, L"192.0.2.7");
    GoOn();
    EXPECT_EQ(Told(L"PORT_NAME"), L"Office & \"100%\" <1>");
    EXPECT_EQ(Told(L"HOST_NAME"), L"192.0.2.7");
    EXPECT_EQ(Told(L"PORT_TYPE"), L"Standard TCP/IP Port");
    EXPECT_EQ(Told(L"ADD_PORT"), L"true");
}

TEST_F(AddPortPageTest, HandsASharedPrinterToTheDriver) {
    const TestNetwork network;
    network.Add(L"\\\\Server\\Printer");
    StartOnPage(Kind::Shared);
    Enter(IDC_ADD_PORT_PATH, L"\\\\Server\\Printer");
    GoOn();
    EXPECT_EQ(Told(L"PORT_NAME"), L"\\\\Server\\Printer");
    EXPECT_EQ(Told(L"PORT_TYPE"), L"Local Port");
    EXPECT_EQ(Told(L"ADD_PORT"), L"true");
}

struct ShareCase {
    std::wstring path;
    DWORD type;
};

class NoSharePageTest : public AddPortPageTest, public testing::WithParamInterface<ShareCase> {};

TEST_P(NoSharePageTest, AsksForAnotherPath) {
    const TestNetwork network;
    network.Add(L"\\\\Server\\Share", GetParam().type);
    StartOnPage(Kind::Shared);
    Enter(IDC_ADD_PORT_PATH, GetParam().path);
    wizard.Press(IDOK);
    EXPECT_EQ(wizard.Answer(IDOK).text, L"No such printer.");
    EXPECT_TRUE(IsRefused(IDC_ADD_PORT_PATH));
    EXPECT_THAT(AdvancedLog(), Not(HasRecord(L"", L"Controller::Next, Moving from 6 to 7")));
}

const ShareCase shares[] = {
    {L"\\\\Server\\Missing", RESOURCETYPE_PRINT},
    {L"\\\\server\\share", RESOURCETYPE_PRINT},
    {L"\\\\Server\\Share", RESOURCETYPE_DISK},
    {L"\\\\Server\\Share", ERROR_NO_NETWORK},
    {L"Share", RESOURCETYPE_PRINT},
};

INSTANTIATE_TEST_SUITE_P(Shares, NoSharePageTest, testing::ValuesIn(shares));

TEST_F(AddPortPageTest, KnowsNoSharedPrinterWithoutANetwork) {
    StartOnPage(Kind::Shared);
    Enter(IDC_ADD_PORT_PATH, L"\\\\Server\\Share");
    wizard.Press(IDOK);
    EXPECT_EQ(wizard.Answer(IDOK).text, L"No such printer.");
}

TEST_F(AddPortPageTest, TakesAnotherNameForOneThatIsTaken) {
    const SystemPort port(L"Workroom");
    StartOnPage(Kind::Network);
    Enter(IDC_ADD_PORT_NAME, L"Workroom");
    Enter(IDC_ADD_PORT_ADDRESS, L"192.0.2.7");
    wizard.Press(IDOK);
    EXPECT_EQ(wizard.Answer(IDOK).text, L"There is one.");
    EXPECT_TRUE(IsRefused(IDC_ADD_PORT_NAME));
    Enter(IDC_ADD_PORT_NAME, L"workroom");
    GoOn();
    EXPECT_EQ(Told(L"PORT_NAME"), L"workroom");
}

TEST_F(AddPortPageTest, HandsThePortToThePredefinedDevices) {
    const SystemPort port(L"Workroom");
    tree.SetUserSettings(L"<DEVICE><DRIVER_ID>MONO</DRIVER_ID></DEVICE>");
    StartOnPage(Kind::Existing);
    EXPECT_FALSE(IsShown(IDC_ADD_PORT_DRIVER_LIST));
    SelectPort(L"Workroom");
    GoOn();
    EXPECT_EQ(Told(L"PORT_NAME"), L"Workroom");
    EXPECT_EQ(Told(L"ADD_PORT"), L"false");
}

// The way over the page of the discovered printers, of which there are none here.
class AddPortWayTest : public AddPortPageTest {
protected:
    void SetUp() override {
        AddPortPageTest::SetUp();
        tree.SetSettings(further);
    }
    void StartFromDiscovery() {
        StartOn(IDC_DISCOVERY_ADD_PORT);
        wizard.Press(IDC_DISCOVERY_ADD_PORT);
        wizard.WaitForControl(IDC_ADD_PORT_KIND);
    }
};

TEST_F(AddPortWayTest, LeadsBackToTheDiscoveredPrinters) {
    StartFromDiscovery();
    wizard.Press(IDC_ADD_PORT_BACK);
    wizard.WaitForControl(IDC_DISCOVERY_ADD_PORT);
    EXPECT_THAT(AdvancedLog(), HasRecord(L"", L"Controller::Back, Moving from 6 to 5"));
}

TEST_F(AddPortWayTest, ShowsAPortThatWasAddedMeanwhileAndKeepsWhatWasTyped) {
    StartFromDiscovery();
    const HWND list = wizard.WaitForControl(IDC_ADD_PORT_LIST);
    EXPECT_EQ(RowOf(list, L"Workroom"), -1);
    SendMessageW(GetDlgItem(GetParent(list), IDC_ADD_PORT_NAME), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(L"typed"));
    wizard.Press(IDC_ADD_PORT_BACK);
    const SystemPort port(L"Workroom");
    wizard.Press(IDC_DISCOVERY_ADD_PORT);
    EXPECT_TRUE(WaitUntil([&] { return RowOf(list, L"Workroom") >= 0; }));
    EXPECT_EQ(WizardDriver::TextOf(GetDlgItem(GetParent(list), IDC_ADD_PORT_NAME)), L"typed");
}

TEST_F(AddPortWayTest, AsksBeforeItCancels) {
    StartFromDiscovery();
    wizard.Press(IDCANCEL);
    AnswerCancel(IDNO);
    EXPECT_TRUE(IsShown(IDC_ADD_PORT_KIND));
}

}  // namespace
