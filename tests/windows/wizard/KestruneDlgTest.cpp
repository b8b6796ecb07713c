// The main window around a page.

#include <windows.h>

#include <thread>

#include "resources/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/BitmapFile.h"
#include "wizard/InstallDialogEx.h"
#include "wizard/KestruneDlg.h"

namespace {

constexpr LONG symbolWidth = 50;
constexpr LONG symbolHeight = 60;

POINT iconPlace;

BOOL WINAPI TellAreaOfSymbol(HWND, RECT* area) {
    *area = {.left = 0, .top = 0, .right = symbolWidth, .bottom = symbolHeight};
    return TRUE;
}

BOOL WINAPI NotePlace(HDC, int left, int top, HICON) {
    iconPlace = {.x = left, .y = top};
    return TRUE;
}

class KestruneDlgTest : public SettingsWorld {
protected:
    KestruneDlgTest() {
        EXPECT_TRUE(main.Create(IDD_MAIN, nullptr));
        app.SetMainWnd(&main);
        ChainRow row{.role = PageRole::Ordinary,
                     .makePage = [this] { return std::make_unique<InstallDialogEx>(context, IDD_BYPASS); },
                     .makeService = {},
                     .hiddenAtFirst = false,
                     .isHidden = {}};
        Chain chain{.rows = {std::move(row)}, .ends = {}};
        chain.ends.startPrograms = [this] { ++programStarts; };
        chain.ends.restart = [this] { ++restarts; };
        EXPECT_TRUE(controller.Start(std::move(chain), false));
        main.ShowWindow(SW_SHOW);
    }
    // The message that ends the program must not reach the next test.
    ~KestruneDlgTest() override { PumpMessages(); }

    // Whether the page has the focus after a message that the window gets without it.
    bool HandsFocusAt(UINT message, WPARAM state) {
        SetFocus(nullptr);
        main.SendMessage(message, state);
        return IsChild(controller.CurrentPage()->GetSafeHwnd(), GetFocus()) != FALSE;
    }

    TestApp app;
    KestruneDlg main{controller, Texts()};
    int programStarts = 0;
    int restarts = 0;
};

TEST_F(KestruneDlgTest, HandsTheFocusToThePageWhereItIsActivated) {
    EXPECT_TRUE(HandsFocusAt(WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0)));
    EXPECT_FALSE(HandsFocusAt(WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 0)));
    EXPECT_FALSE(HandsFocusAt(WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 1))) << "while it is a symbol";
}

TEST_F(KestruneDlgTest, AsksOnceThoughItIsClosedTwice) {
    const DialogUser user(main.GetSafeHwnd(), [&](HWND box) {
        SendMessageW(main.GetSafeHwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
        EXPECT_TRUE(IsWindow(box));
        ClickOn(box, IDNO);
    });
    main.SendMessage(WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_NE(controller.CurrentPage(), nullptr);
}

TEST_F(KestruneDlgTest, EndsForAnotherThreadWithARestart) {
    std::thread([this] { controller.Finish(true); }).join();
    PumpMessages();
    EXPECT_EQ(restarts, 1);
    EXPECT_EQ(programStarts, 0);
}

TEST_F(KestruneDlgTest, EndsForAnotherThreadWithoutARestart) {
    std::thread([this] { controller.Finish(false); }).join();
    PumpMessages();
    EXPECT_EQ(restarts, 0);
    EXPECT_EQ(programStarts, 1);
}

TEST_F(KestruneDlgTest, ShowsTheBeginningOfALogoThatIsTooWide) {
    tree.Add(L"Setup\\res\\images\\logo.bmp", BitmapFile(RGB(255, 0, 0), 2000));
    KestruneDlg wide(controller, Texts());
    ASSERT_TRUE(wide.Create(IDD_MAIN, nullptr));
    RECT logo{};
    GetWindowRect(wide.GetDlgItem(IDC_MAIN_LOGO), &logo);
    MapWindowPoints(nullptr, wide.GetSafeHwnd(), reinterpret_cast<POINT*>(&logo), 2);
    EXPECT_EQ(logo.left, 0);
    EXPECT_GE(logo.right, 2000);
}

TEST_F(KestruneDlgTest, PaintsItsIconInTheMiddleWhileItIsASymbol) {
    main.ShowWindow(SW_MINIMIZE);
    const PatchedImport told("GetClientRect", &TellAreaOfSymbol);
    const PatchedImport noted("DrawIcon", &NotePlace);
    main.SendMessage(WM_PAINT);
    EXPECT_EQ(iconPlace.x + GetSystemMetrics(SM_CXICON) / 2, symbolWidth / 2);
    EXPECT_EQ(iconPlace.y + GetSystemMetrics(SM_CYICON) / 2, symbolHeight / 2);
}

}  // namespace
