// Messages that another process sends to the wizard's windows. Windows lets none of them through from a
// process of fewer rights; whoever has the same ones can neither crash the wizard nor have it start anything
// by what is no input.

#include <vector>

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::IsEmpty;
using testing::Not;

namespace {

struct ForeignMessage {
    UINT message;
    WPARAM parameter;
    LPARAM place;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

class ForeignMessagesTest : public PageTest {
protected:
    ForeignMessagesTest() { UseSettings({}); }

    // The main window, its pages, hidden ones included, and all their controls.
    std::vector<HWND> Windows() const {
        std::vector<HWND> windows = {wizard.MainWindow()};
        EnumChildWindows(windows.front(), &AddWindow, reinterpret_cast<LPARAM>(&windows));
        return windows;
    }
    void PostToAll(const std::vector<ForeignMessage>& messages) const {
        for (const HWND window : Windows()) {
            for (const ForeignMessage& each : messages)
                PostMessageW(window, each.message, each.parameter, each.place);
        }
        wizard.Settle();
    }
};

TEST_F(ForeignMessagesTest, LeaveThePageAsItIs) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartOn(IDOK);
    wizard.Press(IDOK);
    wizard.WaitForControl(IDC_LICENCE_TEXT);
    PostToAll({{WM_TIMER, 1, 0x10},
               {WM_COMMAND, MAKEWPARAM(0xEA60, BN_CLICKED), 0},
               {WM_COMMAND, MAKEWPARAM(IDC_FINISH, 0x7777), 0},
               {WM_QUERYENDSESSION, 0, 0},
               {WM_ENDSESSION, FALSE, 0},
               {WM_APP + 0x77, 1, 0x10},
               {RegisterWindowMessageW(L"MYUPDATEPROGRESS"), 0, 0},
               {RegisterWindowMessageW(L"MYUPDATECANCELTEXT"), 1, 0x10},
               {RegisterWindowMessageW(L"ZVUPDATEDISCOVERYLIST"), 1, 0x10},
               {RegisterWindowMessageW(L"ZVNOPRINTERFOUND"), 1, 0x10}});
    EXPECT_TRUE(wizard.IsRunning());
    EXPECT_TRUE(IsShown(IDC_LICENCE_TEXT));
    EXPECT_FALSE(wizard.FindBox());
    EXPECT_THAT(Installs(), IsEmpty());
    wizard.Press(IDCANCEL);
    AnswerCancel(IDYES);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), Not(HasRecordWith(L"ERROR", L"Unhandled exception")));
}

TEST_F(ForeignMessagesTest, MayChangeTextsAndStartNothingByThem) {
    tree.Add({.path = L"Applications\\a.msi"});
    StartOn(IDOK);
    const std::wstring text = L"cmd.exe";
    COPYDATASTRUCT data{
        .dwData = 1, .cbData = sizeof(text[0]) * 8, .lpData = const_cast<wchar_t*>(text.c_str())};
    for (const HWND window : Windows()) {
        SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    }
    EXPECT_TRUE(wizard.IsRunning());
    EXPECT_TRUE(IsShown(IDC_START_TITLE));
    EXPECT_TRUE(IsEnabled(IDOK));
    EXPECT_THAT(Installs(), IsEmpty());
    wizard.CloseMainWindow();
    AnswerCancel(IDYES);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
}

}  // namespace
