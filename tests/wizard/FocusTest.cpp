// Where the keyboard speaks to while the user walks through the wizard by keys alone.

#include <algorithm>
#include <vector>

#include "resources/resource.h"
#include "tests/wizard/NetworkPageTest.h"
#include "tests/wizard/RealInput.h"

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

class FocusTest : public NetworkPageTest {
protected:
    void SetUp() override {
        NetworkPageTest::SetUp();
        ParkMouse();
        for (const auto& [key, text] :
             {std::pair{L"DISCOVERED_PORTS", L"Ports"}, {L"IP_PORT", L"Network"}, {L"UNC_PORT", L"Shared"}}) {
            tree.SetText(key, text);
        }
    }

    void StartInFront(int control) {
        StartOn(control);
        wizard.BringToFront();
    }

    // The id of the control that has the focus, once that is the expected one.
    int Focused(int expected) const {
        const auto id = [this] {
            const HWND window = wizard.Focus();
            return window == nullptr ? 0 : GetDlgCtrlID(window);
        };
        WaitUntil([&] { return id() == expected; }, std::chrono::seconds(5));
        EXPECT_TRUE(IsUsable(wizard.Focus()));
        return id();
    }
    int FocusAfter(std::initializer_list<WORD> keys, int expected) const {
        PressKeys(keys);
        return Focused(expected);
    }

    // What has the focus is to be seen, takes input, and so do all windows around it.
    static bool IsUsable(HWND window) {
        for (HWND around = window; around != nullptr; around = GetAncestor(around, GA_PARENT)) {
            if (around == GetDesktopWindow()) return window != around;
            if (!IsWindowVisible(around) || !IsWindowEnabled(around)) return false;
        }
        return false;
    }

    // Walks round by the Tab key from where the focus is, and returns the controls in their order.
    std::vector<int> TabRound(std::initializer_list<WORD> keys) const {
        constexpr std::size_t enough = 20;
        std::vector<int> controls;
        const HWND first = wizard.Focus();
        do {
            const HWND before = wizard.Focus();
            PressKeys(keys);
            WaitUntil([&] { return wizard.Focus() != before; }, std::chrono::seconds(5));
            EXPECT_TRUE(IsUsable(wizard.Focus())) << GetDlgCtrlID(wizard.Focus());
            controls.push_back(GetDlgCtrlID(wizard.Focus()));
        } while (wizard.Focus() != first && controls.size() < enough);
        return controls;
    }

    // Walks to the devices by way of another page, which has the focus by then.
    void ComeFromTheLicence() {
        tree.SetSettings(
            L"<HIDE_START>true</HIDE_START><USB_SUPPORTED>1</USB_SUPPORTED><WIN8_DRVTYPES>NONE1</"
            L"WIN8_DRVTYPES>");
        StartInFront(IDC_LICENCE_TEXT);
        EXPECT_EQ(Focused(IDC_LICENCE_TEXT), IDC_LICENCE_TEXT);
        PressKeys({VK_CONTROL, VK_END});
        EXPECT_TRUE(WaitUntilEnabled(IDOK));
        EXPECT_EQ(FocusAfter({VK_TAB}, IDOK), IDOK);
        PressKeys({VK_RETURN});
        wizard.WaitForControl(IDC_DISCOVERY_LIST);
    }

    void ComeToAddPort() {
        StartInFront(IDC_DISCOVERY_LIST);
        wizard.Press(IDC_DISCOVERY_ADD_PORT);
        wizard.WaitForControl(IDC_ADD_PORT_BACK);
    }
};

TEST_F(FocusTest, IsInTheListOfDevicesBeforeAnyHasArrived) {
    AddDriver(L"NONE1");
    ComeFromTheLicence();
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    EXPECT_EQ(Focused(IDC_DISCOVERY_LIST), IDC_DISCOVERY_LIST);
    PressKeys({VK_F5});
    EXPECT_TRUE(WaitForSearches(2));
}

TEST_F(FocusTest, GoesRoundTheControlsOfThePageOfDevicesAndNothingElse) {
    AddDriver(L"NONE1");
    AddFourDevices();
    ComeFromTheLicence();
    EXPECT_TRUE(WaitForRows(4));
    EXPECT_EQ(Focused(IDC_DISCOVERY_LIST), IDC_DISCOVERY_LIST);
    EXPECT_THAT(
        TabRound({VK_TAB}),
        ElementsAre(IDC_DISCOVERY_MODIFY_SEARCH, IDC_DISCOVERY_REFRESH, IDC_DISCOVERY_ADD_PORT,
                    IDC_DISCOVERY_USB, IDC_DISCOVERY_DRIVER_LIST, IDOK, IDCANCEL, IDC_DISCOVERY_LIST));
    EXPECT_THAT(
        TabRound({VK_SHIFT, VK_TAB}),
        ElementsAre(IDCANCEL, IDOK, IDC_DISCOVERY_DRIVER_LIST, IDC_DISCOVERY_USB, IDC_DISCOVERY_ADD_PORT,
                    IDC_DISCOVERY_REFRESH, IDC_DISCOVERY_MODIFY_SEARCH, IDC_DISCOVERY_LIST));
}

TEST_F(FocusTest, LeavesNoKeyToThePageThatBackHasLeft) {
    ComeToAddPort();
    EXPECT_EQ(Focused(IDC_ADD_PORT_KIND), IDC_ADD_PORT_KIND);
    EXPECT_EQ(FocusAfter({VK_SHIFT, VK_TAB}, IDCANCEL), IDCANCEL);
    EXPECT_EQ(FocusAfter({VK_SHIFT, VK_TAB}, IDC_ADD_PORT_BACK), IDC_ADD_PORT_BACK);
    PressKeys({VK_RETURN});
    PressKeys({VK_RETURN});
    EXPECT_EQ(Focused(IDC_DISCOVERY_LIST), IDC_DISCOVERY_LIST);
    EXPECT_THAT(AdvancedLog(),
                Contains(testing::Field(&LogRecord::message, L"Controller::Back, Moving from 6 to 5")));
    EXPECT_THAT(
        AdvancedLog(),
        testing::Not(Contains(testing::Field(&LogRecord::message, L"Controller::Back, Moving from 5 to 4"))));
}

TEST_F(FocusTest, StaysWhereTheUserTypesWhenDevicesArrive) {
    AddDriver(L"NONE1");
    AddDriver(L"MONO1");
    AddFourDevices();
    Script({L"discover", L"untilFile", Gate(L"gate")});
    StartInFront(IDC_DISCOVERY_LIST);
    wizard.Press(IDC_DISCOVERY_ADD_PORT);
    wizard.WaitForControl(IDC_ADD_PORT_KIND);
    PressKeys({VK_DOWN});
    wizard.WaitForControl(IDC_ADD_PORT_NAME);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_ADD_PORT_NAME), IDC_ADD_PORT_NAME);
    PressKeys({'A'});
    Open(L"gate");
    EXPECT_TRUE(WaitUntil(
        [this] { return testing::Value(AdvancedLog(), HasRecord(L"", L"Thread Count decremented 0")); }));
    wizard.Settle();
    PressKeys({'B'});
    EXPECT_TRUE(WaitUntil([this] { return TextOf(IDC_ADD_PORT_NAME) == L"ab"; }));
    EXPECT_EQ(Focused(IDC_ADD_PORT_NAME), IDC_ADD_PORT_NAME);
    wizard.Press(IDC_ADD_PORT_BACK);
    EXPECT_TRUE(WaitForRows(4));
    EXPECT_TRUE(WaitUntil([this] { return SelectedRow() == 3; }));
}

TEST_F(FocusTest, ComesBackToTheButtonThatOpenedTheSearch) {
    AddDriver(L"NONE1");
    StartInFront(IDC_DISCOVERY_LIST);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_DISCOVERY_MODIFY_SEARCH), IDC_DISCOVERY_MODIFY_SEARCH);
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_MODIFY_SEARCH_LOCAL);
    EXPECT_EQ(Focused(IDC_MODIFY_SEARCH_LOCAL), IDC_MODIFY_SEARCH_LOCAL);
    PressKeys({VK_ESCAPE});
    wizard.WaitForControl(IDC_DISCOVERY_LIST);
    EXPECT_EQ(Focused(IDC_DISCOVERY_MODIFY_SEARCH), IDC_DISCOVERY_MODIFY_SEARCH);
    EXPECT_FALSE(HasAskedToCancel());
}

TEST_F(FocusTest, StaysInTheSearchWhileItIsChecked) {
    AddDriver(L"NONE1");
    StartInFront(IDC_DISCOVERY_LIST);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_DISCOVERY_MODIFY_SEARCH), IDC_DISCOVERY_MODIFY_SEARCH);
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_MODIFY_SEARCH_LOCAL);
    EXPECT_EQ(FocusAfter({VK_DOWN}, IDC_MODIFY_SEARCH_HOST), IDC_MODIFY_SEARCH_HOST);
    PressKeys({'A'});
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_EQ(FocusAfter({VK_TAB}, IDOK), IDOK);
    PressKeys({VK_SHIFT, VK_TAB});
    EXPECT_EQ(Focused(IDC_MODIFY_SEARCH_HOST), IDC_MODIFY_SEARCH_HOST);
    PressKeys({VK_BACK});
    EXPECT_TRUE(WaitUntil([this] { return !IsEnabled(IDOK); }));
    PressKeys({VK_ESCAPE});
    EXPECT_EQ(Focused(IDC_DISCOVERY_MODIFY_SEARCH), IDC_DISCOVERY_MODIFY_SEARCH);
}

TEST_F(FocusTest, IsAtTheEndOfTheHostThatIsStored) {
    AddDriver(L"NONE1");
    UseDiscovery(L"<DISCOVER_PARAMS><UnicastAddress>host</UnicastAddress></DISCOVER_PARAMS>");
    StartInFront(IDC_DISCOVERY_LIST);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_DISCOVERY_MODIFY_SEARCH), IDC_DISCOVERY_MODIFY_SEARCH);
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_MODIFY_SEARCH_HOST);
    EXPECT_EQ(Focused(IDC_MODIFY_SEARCH_HOST), IDC_MODIFY_SEARCH_HOST);
    PressKeys({'X'});
    EXPECT_TRUE(WaitUntil([this] { return TextOf(IDC_MODIFY_SEARCH_HOST) == L"hostx"; }))
        << testing::PrintToString(TextOf(IDC_MODIFY_SEARCH_HOST));
}

class PortFocusTest : public FocusTest, public testing::WithParamInterface<int> {};

TEST_P(PortFocusTest, GoesRoundTheControlsOfTheKindOfPort) {
    const std::vector<int> fields[] = {
        {IDC_ADD_PORT_LIST}, {IDC_ADD_PORT_NAME, IDC_ADD_PORT_ADDRESS}, {IDC_ADD_PORT_PATH}};
    AddDriver(L"NONE1");
    ComeToAddPort();
    EXPECT_EQ(Focused(IDC_ADD_PORT_KIND), IDC_ADD_PORT_KIND);
    for (int kind = 0; kind < GetParam(); ++kind) PressKeys({VK_DOWN});
    wizard.WaitForControl(fields[GetParam()].front());
    std::vector<int> round = fields[GetParam()];
    for (const int id : {IDC_ADD_PORT_DRIVER_LIST, IDC_ADD_PORT_BACK, IDCANCEL, IDC_ADD_PORT_KIND})
        round.push_back(id);
    EXPECT_EQ(TabRound({VK_TAB}), round);
}

INSTANTIATE_TEST_SUITE_P(Kinds, PortFocusTest, testing::Range(0, 3));

TEST_F(FocusTest, ReachesTheConnectionThatTheMouseWouldPick) {
    AddDriver(L"NONE1");
    StartInFront(IDC_DISCOVERY_LIST);
    EXPECT_TRUE(WaitForHeading(L"NO_PRINTER_FOUND"));
    for (int step = 0; step < 4; ++step) PressKeys({VK_TAB});
    EXPECT_EQ(Focused(IDC_DISCOVERY_USB), IDC_DISCOVERY_USB);
    PressKeys({VK_SPACE});
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    EXPECT_FALSE(IsEnabled(IDC_DISCOVERY_REFRESH));
    EXPECT_EQ(Focused(IDC_DISCOVERY_USB), IDC_DISCOVERY_USB);
}

TEST_F(FocusTest, StaysOnTheConnectionThatWasPickedDuringTheSearch) {
    AddDriver(L"NONE1");
    AddDriver(L"COLOR1");
    AddDevice(L"10.0.0.1", L"A", Element(L"COLORTYPE", L"color"));
    for (const wchar_t* const series : {L"B", L"C", L"D"}) AddDevice(L"10.0.0.2", series);
    Script({L"discover", L"untilFile", Gate(L"gate")});
    StartOn(IDC_DISCOVERY_USB);
    wizard.Press(IDC_DISCOVERY_USB);
    EXPECT_TRUE(WaitUntilEnabled(IDOK));
    Open(L"gate");
    EXPECT_TRUE(WaitForRows(4));
    EXPECT_EQ(SelectedRow(), -1);
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_EQ(SendMessageW(wizard.FindControl(IDC_DISCOVERY_USB), BM_GETCHECK, 0, 0), BST_CHECKED);
    wizard.Press(IDOK);
    CloseOnFinishPage();
    EXPECT_THAT(CommandOf(L"NONE1.msi"), testing::Not(testing::HasSubstr(L"<HOST_NAME>")));
}

// The pages after the choice of a printer.
class RunFocusTest : public FocusTest {
protected:
    void Use(const std::wstring& further) {
        tree.SetSettings(std::wstring(Settings::shownFromProgress) +
                         L"<HIDE_CONNECTIVITY>true</HIDE_CONNECTIVITY>" + further);
    }
    void ComeToTheEnd() {
        wizard.Start();
        wizard.WaitForControl(IDC_OUTCOME_TITLE);
        wizard.BringToFront();
    }
};

TEST_F(RunFocusTest, IsOnTheGreenButtonsAtTheEnd) {
    Use(L"<INFOCENTER_LINK>http://help.test</INFOCENTER_LINK>");
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 3010}});
    ComeToTheEnd();
    EXPECT_EQ(Focused(IDC_FINISH), IDC_FINISH);
    EXPECT_THAT(TabRound({VK_TAB}), ElementsAre(IDC_FINISH_INFORMATION_LINK, IDC_FINISH));
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_REBOOT_NOW);
    EXPECT_EQ(Focused(IDOK), IDOK);
    EXPECT_THAT(TabRound({VK_TAB}), ElementsAre(IDC_REBOOT_NOW, IDC_HELP_BUTTON, IDOK));
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_REBOOT_NOW), IDC_REBOOT_NOW);
    EXPECT_EQ(FocusAfter({VK_DOWN}, IDC_REBOOT_LATER), IDC_REBOOT_LATER);
    PressKeys({VK_ESCAPE});
    wizard.WaitForEnd();
}

TEST_F(RunFocusTest, LeavesEscapeToTheFinishPageOfACancelledRun) {
    Use({});
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {{L"untilCancel", {}}}, .code = 1602}});
    StartInFront(IDC_PROGRESS_BAR);
    EXPECT_EQ(Focused(IDC_PROGRESS_STATUS_LINE), IDC_PROGRESS_STATUS_LINE);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDCANCEL), IDCANCEL);
    PressKeys({VK_RETURN});
    AnswerCancel(IDYES);
    wizard.WaitForControl(IDC_OUTCOME_TITLE);
    wizard.BringToFront();
    EXPECT_EQ(Focused(IDC_FINISH), IDC_FINISH);
    PressKeys({VK_ESCAPE});
    wizard.WaitForEnd();
}

TEST_F(RunFocusTest, ComesBackFromTheSoftwareListToItsLink) {
    Use(L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>");
    tree.Add({.path = L"Applications\\a.msi", .install = {.steps = {}, .code = 3010}});
    ComeToTheEnd();
    EXPECT_EQ(FocusAfter({VK_TAB}, IDC_FINISH_SOFTWARE_LIST_LINK), IDC_FINISH_SOFTWARE_LIST_LINK);
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_RETURN}}) {
        PressKeys({VK_RETURN});
        wizard.WaitForControl(IDC_STATUS_LIST);
        EXPECT_TRUE(WaitUntil([this] { return GetForegroundWindow() == wizard.MainWindow(); }));
        EXPECT_EQ(Focused(IDOK), IDOK);
        EXPECT_THAT(TabRound({VK_TAB}), ElementsAre(IDC_STATUS_LIST, IDOK));
        PressKeys({key});
        wizard.WaitForControl(IDC_FINISH);
        EXPECT_EQ(Focused(IDC_FINISH_SOFTWARE_LIST_LINK), IDC_FINISH_SOFTWARE_LIST_LINK);
    }
    EXPECT_FALSE(HasAskedToCancel());
}

TEST_F(FocusTest, LeavesEscapeAndEnterToAnOpenList) {
    tree.SetSettings(
        L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><HIDE_DISCOVERY>true</HIDE_DISCOVERY>"
        L"<MANUFACTURERS>A:1|B:2</MANUFACTURERS>");
    StartInFront(IDC_MANUFACTURER_LIST);
    const HWND list = wizard.FindControl(IDC_MANUFACTURER_LIST);
    const auto isOpen = [&] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != FALSE; };
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_RETURN}}) {
        PressKeys({VK_F4});
        EXPECT_TRUE(WaitUntil(isOpen));
        PressKeys({key});
        EXPECT_TRUE(WaitUntil([&] { return !isOpen(); }));
        EXPECT_EQ(Focused(IDC_MANUFACTURER_LIST), IDC_MANUFACTURER_LIST);
    }
    EXPECT_FALSE(HasAskedToCancel());
}

struct RoundCase {
    const char* name;
    const wchar_t* settings;
    // The control that has the focus at first, and the others in the order of the Tab key.
    std::vector<int> controls;
};

void PrintTo(const RoundCase& page, std::ostream* stream) {
    *stream << page.name;
}

class FirstPagesFocusTest : public FocusTest, public testing::WithParamInterface<RoundCase> {};

TEST_P(FirstPagesFocusTest, GoesRoundTheControlsOfThePage) {
    tree.SetSettings(std::wstring(L"<HIDE_DISCOVERY>true</HIDE_DISCOVERY>") + GetParam().settings);
    tree.Add({.path = L"Applications\\a.msi"});
    std::vector<int> round = GetParam().controls;
    StartInFront(round.front());
    EXPECT_EQ(Focused(round.front()), round.front());
    std::rotate(round.begin(), round.begin() + 1, round.end());
    EXPECT_EQ(TabRound({VK_TAB}), round);
    std::ranges::reverse(round);
    std::rotate(round.begin(), round.begin() + 1, round.end());
    EXPECT_EQ(TabRound({VK_SHIFT, VK_TAB}), round);
}

INSTANTIATE_TEST_SUITE_P(Pages, FirstPagesFocusTest,
                         testing::Values(RoundCase{"Licence",
                                                   L"<HIDE_START>true</HIDE_START>",
                                                   {IDC_LICENCE_TEXT, IDOK, IDCANCEL}},
                                         RoundCase{"Manufacturer",
                                                   L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
                                                   L"<MANUFACTURERS>A:1|B:2</MANUFACTURERS>",
                                                   {IDC_MANUFACTURER_LIST, IDC_HELP_BUTTON, IDCANCEL}},
                                         RoundCase{"Bypass",
                                                   L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
                                                   L"<TAG_DIALOG_SHOW_BYPASS>true</TAG_DIALOG_SHOW_BYPASS>",
                                                   {IDC_BYPASS_REINSTALL, IDCANCEL}},
                                         RoundCase{"Connectivity",
                                                   L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
                                                   L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>",
                                                   {IDC_CONNECTIVITY_NETWORK, IDOK, IDCANCEL}}),
                         [](const testing::TestParamInfo<RoundCase>& page) {
                             return std::string(page.param.name);
                         });

TEST_F(RunFocusTest, IsInTheQuestionAboutFilesAndBackOnThePageAfterIt) {
    Use({});
    const std::wstring sign = Gate(L"gate");
    tree.Add(
        {.path = L"Applications\\a.msi",
         .install = {.steps = {{L"message", L"<FILE_IN_USE>true</FILE_IN_USE>"}, {L"untilFile", sign}}}});
    StartInFront(IDC_FILES_IN_USE_RETRY);
    EXPECT_EQ(Focused(IDC_FILES_IN_USE_RETRY), IDC_FILES_IN_USE_RETRY);
    EXPECT_THAT(TabRound({VK_TAB}), ElementsAre(IDCANCEL, IDC_FILES_IN_USE_RETRY));
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_PROGRESS_BAR);
    EXPECT_EQ(Focused(IDC_PROGRESS_STATUS_LINE), IDC_PROGRESS_STATUS_LINE);
    Open(L"gate");
    wizard.WaitForControl(IDC_OUTCOME_TITLE);
    EXPECT_EQ(Focused(IDC_FINISH), IDC_FINISH);
}

TEST_F(RunFocusTest, IsInTheQuestionOfTheManagerAndItsAnswerIsChosenByTheArrows) {
    Use({});
    tree.Add({.path = L"Applications\\a.msi",
              .install = {.steps = {{L"message", L"<RM_FILE_IN_USE>true</RM_FILE_IN_USE>"}}}});
    StartInFront(IDC_CLOSABLE_FILES_RESTART);
    EXPECT_EQ(Focused(IDC_CLOSABLE_FILES_RESTART), IDC_CLOSABLE_FILES_RESTART);
    EXPECT_THAT(TabRound({VK_TAB}), ElementsAre(IDOK, IDC_CLOSABLE_FILES_RESTART));
    EXPECT_EQ(FocusAfter({VK_DOWN}, IDC_CLOSABLE_FILES_DO_NOT_CLOSE), IDC_CLOSABLE_FILES_DO_NOT_CLOSE);
    EXPECT_EQ(FocusAfter({VK_TAB}, IDOK), IDOK);
    PressKeys({VK_RETURN});
    wizard.WaitForControl(IDC_OUTCOME_TITLE);
    EXPECT_EQ(Focused(IDC_FINISH), IDC_FINISH);
    EXPECT_EQ(Calls(L"answer").front().Argument(L"answer"), L"2");
}

}  // namespace
