// What the page for a port by hand writes down. No page is behind it here, so that the walk ends with it.

#include <string_view>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "resources/resource.h"
#include "tests/windows/world/AddPortPageWorld.h"
#include "tests/windows/world/FakeShare.h"
#include "tests/windows/world/PatchedExport.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::Contains;
using testing::ElementsAre;

std::wstring Element(const std::wstring& name, const std::wstring& value) {
    return L"<" + name + L">" + value + L"</" + name + L">";
}

class AddPortNextTest : public AddPortPageWorld {
protected:
    // The message that ends the program must not reach the next test.
    ~AddPortNextTest() override { PumpMessages(); }

    void GoOn() const {
        PressNext();
        EXPECT_THAT(BasicMessages(), Contains(L"Installation is Finished"));
    }
    // Name, host, type and whether it is to be made, each after a bar.
    static std::wstring Port() {
        std::wstring port;
        for (const wchar_t* tag : {L"PORT_NAME", L"HOST_NAME", L"PORT_TYPE", L"ADD_PORT"}) {
            port += L"|" + Settings().GetString(TextTag(tag));
        }
        return port;
    }
    void UseConfiguration() const {
        Settings().SetBool(Tag::INSTALL_FROM_CONFIG, true);
        Settings().SetDevices({Element(L"DRIVER_ID", L"A")});
    }
};

TEST_F(AddPortNextTest, TakesAnExistingPortAsItIs) {
    Open();
    page.FillPortList({{L"COM1:", L"Other"}, {L"LPT1:", L"Local Port"}});
    SelectPort(1);
    GoOn();
    EXPECT_EQ(Port(), L"|LPT1:||Local Port|false");
}

class LongPortTest : public AddPortNextTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(LongPortTest, IsTakenWhole) {
    const std::wstring name = std::wstring(GetParam() - 1, L'x') + L"y";
    Open();
    page.FillPortList({{name, L"z" + name}});
    SelectPort(0);
    GoOn();
    EXPECT_EQ(Port(), L"|" + name + L"||z" + name + L"|false");
}

INSTANTIATE_TEST_SUITE_P(Lengths, LongPortTest, testing::Values(126, 127, 128, 129, 255, 256, 257, 5000));

TEST_F(AddPortNextTest, TakesAPortWithoutADescription) {
    Settings().SetString(Tag::PORT_TYPE, L"Standard TCP/IP Port");
    Open();
    page.FillPortList({{L"COM1:", L""}});
    SelectPort(0);
    GoOn();
    EXPECT_EQ(Port(), L"|COM1:|||false");
}

TEST_F(AddPortNextTest, DescribesANewNetworkPort) {
    Open();
    page.FillPortList({{L"office", L""}});
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"Office");
    Enter(IDC_ADD_PORT_ADDRESS, L"not an address");
    GoOn();
    EXPECT_EQ(Port(), L"|Office|not an address|Standard TCP/IP Port|true");
}

TEST_F(AddPortNextTest, LosesTheLastCharacterOfAFullField) {
    Open();
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, std::wstring(63, L'n') + L"N");
    Enter(IDC_ADD_PORT_ADDRESS, std::wstring(255, L'a') + L"A");
    GoOn();
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), std::wstring(63, L'n'));
    EXPECT_EQ(Settings().GetString(Tag::HOST_NAME), std::wstring(255, L'a'));
}

TEST_F(AddPortNextTest, DescribesASharedPrinter) {
    const FakeShare share({.remoteName = L"\\\\server\\printer"});
    Open();
    Choose(2);
    Enter(IDC_ADD_PORT_PATH, L"\\\\server\\printer");
    GoOn();
    EXPECT_EQ(Port(), L"|\\\\server\\printer||Local Port|true");
}

TEST_F(AddPortNextTest, IsPaintedWhileTheNetworkThinks) {
    bool isPainted = false;
    const FakeShare share({.remoteName = L"\\\\server\\printer", .before = [&] {
                               InvalidateRect(page.GetSafeHwnd(), nullptr, TRUE);
                               isPainted = WaitUntil([this] {
                                   return GetUpdateRect(page.GetSafeHwnd(), nullptr, FALSE) == FALSE;
                               });
                           }});
    Open();
    Show();
    Choose(2);
    Enter(IDC_ADD_PORT_PATH, L"\\\\server\\printer");
    GoOn();
    EXPECT_TRUE(isPainted);
}

std::vector<HCURSOR> cursors;

HCURSOR WINAPI NoteCursor(HCURSOR cursor) {
    cursors.push_back(cursor);
    return LoadCursorW(nullptr, IDC_ARROW);
}

TEST_F(AddPortNextTest, ShowsTheCursorOfAWaitWhileTheNetworkThinks) {
    cursors.clear();
    std::vector<HCURSOR> during;
    const PatchedImport cursor("SetCursor", &NoteCursor);
    const FakeShare share({.remoteName = L"\\\\server\\printer", .before = [&] { during = cursors; }});
    Open();
    Choose(2);
    Enter(IDC_ADD_PORT_PATH, L"\\\\server\\printer");
    GoOn();
    EXPECT_THAT(during, ElementsAre(LoadCursorW(nullptr, IDC_WAIT)));
    EXPECT_THAT(cursors, ElementsAre(LoadCursorW(nullptr, IDC_WAIT), LoadCursorW(nullptr, IDC_ARROW)));
}

TEST_F(AddPortNextTest, DoesNotReadTheRowOfAKindThatIsNotChosen) {
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"Office");
    Enter(IDC_ADD_PORT_ADDRESS, L"10.1.2.3");
    GoOn();
    EXPECT_EQ(Port(), L"|Office|10.1.2.3|Standard TCP/IP Port|true");
}

TEST_F(AddPortNextTest, HandsAnExistingPortToThePredefinedDevices) {
    UseConfiguration();
    Open();
    page.FillPortList({{L"LPT1:", L"Local Port"}});
    SelectPort(0);
    GoOn();
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<DRIVER_ID>A</DRIVER_ID><PORT_NAME>LPT1:</PORT_NAME>"
                            L"<ADD_PORT>false</ADD_PORT><PORT_TYPE>Local Port</PORT_TYPE>"));
    EXPECT_EQ(Settings().GetString(TextTag(L"SET_DEFAULT")), L"");
}

TEST_F(AddPortNextTest, HandsANetworkPortToThePredefinedDevices) {
    UseConfiguration();
    Open();
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"Office");
    Enter(IDC_ADD_PORT_ADDRESS, L"10.1.2.3");
    GoOn();
    EXPECT_THAT(Settings().GetDevices(),
                ElementsAre(L"<DRIVER_ID>A</DRIVER_ID><PORT_NAME>Office</PORT_NAME>"
                            L"<HOST_NAME>10.1.2.3</HOST_NAME><ADD_PORT>true</ADD_PORT>"
                            L"<PORT_TYPE>Standard TCP/IP Port</PORT_TYPE>"));
}

TEST_F(AddPortNextTest, TakesANameForADuplicateThoughTheListShowsItWithMarks) {
    Open("RTL");
    page.FillPortList({{L"Office (1)", L""}});
    EXPECT_EQ(Cell(0, 0), L"Office (1)\u200E");
    Choose(1);
    Enter(IDC_ADD_PORT_NAME, L"Office (1)");
    Enter(IDC_ADD_PORT_ADDRESS, L"10.1.2.3");
    EXPECT_EQ(PressNextAndConfirm(), L"Wrong: There is one.");
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"");
}

TEST_F(AddPortNextTest, TakesAPortWithoutTheMarksOfItsName) {
    Open("RTL");
    page.FillPortList({{L"Office (1)", L""}});
    SelectPort(0);
    GoOn();
    EXPECT_EQ(Settings().GetString(Tag::PORT_NAME), L"Office (1)");
}

int WINAPI TellHebrew(LPCWSTR, LCTYPE, LPWSTR text, int) {
    std::wstring_view(L"040d").copy(text, 5);
    return 5;
}

TEST_F(AddPortNextTest, TakesTheMarksOffAnAddress) {
    const PatchedExport locale("GetLocaleInfoEx", &TellHebrew);
    Open("RTL");
    page.FillPortList({{L"10.1.2.3", L"Standard TCP/IP Port"}});
    EXPECT_EQ(Cell(0, 0), L"\u202D10.1.2.3\u202C");
    SelectPort(0);
    GoOn();
    EXPECT_EQ(Port(), L"|10.1.2.3||Standard TCP/IP Port|false");
}

TEST_F(AddPortNextTest, KeepsTheAddressFieldReadingFromLeftToRight) {
    Open("RTL");
    EXPECT_EQ(GetWindowLongW(At(IDC_ADD_PORT_ADDRESS), GWL_EXSTYLE) & WS_EX_RTLREADING, 0);
}

// The catalogue's choice of drivers belongs to the packages; what it selects from the start does not count
// here.
class AddPortSelectionTest : public AddPortNextTest {
protected:
    AddPortSelectionTest() {
        AddDriver(L"mono.msi", L"MONO").properties[L"DRIVERNAME"] = L"Mono";
        AddDriver(L"scan.msi", L"SCAN");
        AddPackage(L"Applications", L"fax.msi").properties[L"DEVICETYPE"] = L"FAX";
        AddPackage(L"Applications", L"scanner.msi").properties[L"DEVICETYPE"] = L"SCANNER";
        Settings().SetStrings({{Tag::NO_COMM_DEFAULT, L"MONO"}, {TextTag(L"WIN8_NO_COMM_DEFAULT"), L"MONO"}});
        BuildCatalogues();
    }
    void GoOnWithAPort() {
        Open();
        page.AddDriver(DriverInfo::GetInstance().GetDriver(L"MONO"));
        page.FillPortList({{L"LPT1:", L""}});
        SelectPort(0);
        GoOn();
    }
};

TEST_F(AddPortSelectionTest, TakesTheDriverAndMakesItsPrinterTheDefault) {
    GoOnWithAPort();
    EXPECT_EQ(Settings().GetString(Tag::SELECTED_DRIVER), ProgramTree::AsWritten(L"Drivers\\x64\\mono.msi"));
    EXPECT_EQ(Settings().GetString(TextTag(L"SET_DEFAULT")), L"true");
    EXPECT_TRUE(DriverInfo::GetInstance().GetDriver(L"MONO").isSelected);
    EXPECT_TRUE(DriverInfo::GetInstance().GetDriver(L"SCAN").isSelected);
    EXPECT_TRUE(Application(L"fax").isOptional);
    EXPECT_FALSE(Application(L"scanner").isOptional);
}

TEST_F(AddPortSelectionTest, TakesNoDriverWhereTheListIsEmpty) {
    Settings().SetString(Tag::SELECTED_DRIVER, L"before");
    Open();
    page.FillPortList({{L"LPT1:", L""}});
    SelectPort(0);
    GoOn();
    EXPECT_EQ(Settings().GetString(Tag::SELECTED_DRIVER), L"");
}

TEST_F(AddPortSelectionTest, MakesScannerAndFaxPartOfTheRunWhereThePackageSettlesThem) {
    Settings().SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    AppCatalogue::GetInstance().Update([](MSI_APP& record) { record.isOptional = true; });
    GoOnWithAPort();
    EXPECT_FALSE(Application(L"fax").isOptional);
    EXPECT_FALSE(Application(L"scanner").isOptional);
}

TEST_F(AddPortSelectionTest, BuildsTheHelpLinkOfTheKnownPrinter) {
    Settings().SetStrings({{TextTag(L"MODEL_PRODUCT_CODE"), L"Loom 200:Maker L210"},
                           {Tag::OEM_NAME, L"Maker"},
                           {Tag::PRINTER_NAME, L"Loom 200"},
                           {Tag::DRIVER_MODEL_NAME, L"Maker L210"},
                           {Tag::INFOCENTER_LINK, L"https://help.example/"}});
    GoOnWithAPort();
    EXPECT_THAT(Settings().GetString(Tag::EXACT_INFOCENTER_LINK),
                testing::StartsWith(L"https://help.example/?productCode=Maker_L210&loc="));
}

}  // namespace
