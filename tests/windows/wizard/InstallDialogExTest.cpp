// What every page has from its base.

#include <windows.h>

#include "framework/Handles.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "wizard/InstallDialogEx.h"

namespace {

class AnyPage : public InstallDialogEx {
public:
    using InstallDialogEx::Apply;
    using InstallDialogEx::EnableControl;
    using InstallDialogEx::fontBody;
    using InstallDialogEx::fontButton;
    using InstallDialogEx::fontHeading;
    using InstallDialogEx::fontLarge;
    using InstallDialogEx::fontMedium;
    using InstallDialogEx::fontSmall;
    using InstallDialogEx::fontUnderlined;
    using InstallDialogEx::InstallDialogEx;
    using InstallDialogEx::KeepTabStop;
    using InstallDialogEx::ShowControl;

    int acceptances = 0;

private:
    void OnOK() override { ++acceptances; }
};

class InstallDialogExTest : public SettingsWorld {
protected:
    InstallDialogExTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
        window.ShowWindow(SW_SHOW);
        page.ShowWindow(SW_SHOW);
    }

    HWND At(int control) const { return page.GetDlgItem(control); }
    // Whether the page lets its ground show through the control's text.
    bool IsTransparent(int control) {
        const MemoryDc context(CreateCompatibleDC(nullptr));
        page.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context.get()),
                         reinterpret_cast<LPARAM>(At(control)));
        return GetBkMode(context.get()) == TRANSPARENT;
    }

    TestApp app;
    CDialogEx window;
    AnyPage page{context, IDD_ADD_PORT};
};

struct Letters {
    const Font& font;
    LONG points;
    LONG weight;
    bool isUnderlined;
};

TEST_F(InstallDialogExTest, MakesTheLettersOfPages) {
    const MemoryDc screen(CreateCompatibleDC(nullptr));
    for (const Letters& letters :
         {Letters{page.fontBody, 9, 300, false}, Letters{page.fontLarge, 24, 300, false},
          Letters{page.fontHeading, 10, 600, false}, Letters{page.fontMedium, 10, 400, false},
          Letters{page.fontButton, 9, 300, false}, Letters{page.fontSmall, 9, 300, false},
          Letters{page.fontUnderlined, 9, 300, true}}) {
        LOGFONTW made{};
        GetObjectW(letters.font.get(), sizeof(made), &made);
        EXPECT_EQ(made.lfHeight, -MulDiv(letters.points, GetDeviceCaps(screen.get(), LOGPIXELSY), 72));
        EXPECT_EQ(made.lfWeight, letters.weight);
        EXPECT_EQ(made.lfUnderline != 0, letters.isUnderlined);
    }
}

TEST_F(InstallDialogExTest, ClicksNothingOnEnterWhereNothingHasTheFocus) {
    SetFocus(nullptr);
    MSG enter{.hwnd = page.GetSafeHwnd(), .message = WM_KEYDOWN, .wParam = VK_RETURN};
    EXPECT_TRUE(page.PreTranslateMessage(&enter));
    EXPECT_EQ(page.acceptances, 0);
}

TEST_F(InstallDialogExTest, LeavesTheGroundOfAFieldToTheSystem) {
    EXPECT_FALSE(IsTransparent(IDC_ADD_PORT_NAME));
    EXPECT_TRUE(IsTransparent(IDC_ADD_PORT_TITLE));
}

TEST_F(InstallDialogExTest, HandsTheFocusOnFromAControlThatGoes) {
    SetFocus(At(IDC_ADD_PORT_NAME));
    page.EnableControl(IDC_ADD_PORT_NAME, false);
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
    SetFocus(At(IDC_ADD_PORT_ADDRESS));
    page.ShowControl(IDC_ADD_PORT_ADDRESS, false);
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
}

TEST_F(InstallDialogExTest, HasTheNameOfItsFirstTextThatIsShown) {
    SetWindowTextW(At(IDC_ADD_PORT_TITLE), L"hidden");
    SetWindowTextW(At(IDC_ADD_PORT_HEADING), L"shown");
    page.ShowControl(IDC_ADD_PORT_TITLE, false);
    page.Appear();
    EXPECT_EQ(TextOf(page.GetSafeHwnd()), L"shown");
}

TEST_F(InstallDialogExTest, TakesTheFocusWhereItAppearsAndLeavesItWhereItIsThereAlready) {
    SetFocus(nullptr);
    page.Appear();
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
    SetFocus(At(IDC_ADD_PORT_ADDRESS));
    page.Appear();
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_ADDRESS));
}

TEST_F(InstallDialogExTest, LeavesTheFocusWhereAnotherControlGoes) {
    SetFocus(At(IDC_ADD_PORT_ADDRESS));
    page.EnableControl(IDC_ADD_PORT_NAME, false);
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_ADDRESS));
    page.ShowControl(IDC_ADD_PORT_ADDRESS, true);
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_ADDRESS));
}

TEST_F(InstallDialogExTest, HandsTheFocusToWhatAppearsAtTheSameTime) {
    page.ShowControl(IDC_ADD_PORT_KIND, false);
    SetFocus(At(IDC_ADD_PORT_NAME));
    page.Apply({{.id = IDC_ADD_PORT_NAME, .shown = false, .enabled = true},
                {.id = IDC_ADD_PORT_KIND, .shown = true, .enabled = true}});
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
}

TEST_F(InstallDialogExTest, HandsTheFocusToWhatCanBeUsedFromTheSameTimeOn) {
    page.EnableControl(IDC_ADD_PORT_KIND, false);
    SetFocus(At(IDC_ADD_PORT_NAME));
    page.Apply({{.id = IDC_ADD_PORT_NAME, .shown = true, .enabled = false},
                {.id = IDC_ADD_PORT_KIND, .shown = true, .enabled = true}});
    EXPECT_EQ(GetFocus(), At(IDC_ADD_PORT_KIND));
}

// The number of a control is that of no template.
TEST_F(InstallDialogExTest, CannotBeMadeWithoutItsTemplate) {
    app.SetMainWnd(&window);
    InstallDialogEx other(context, IDC_ADD_PORT_NAME);
    EXPECT_FALSE(other.CreateAsPage({}));
    EXPECT_EQ(other.GetSafeHwnd(), nullptr);
}

class SearchPageTest : public SettingsWorld {
protected:
    SearchPageTest() {
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
        window.ShowWindow(SW_SHOW);
        page.ShowWindow(SW_SHOW);
        for (int radio = IDC_MODIFY_SEARCH_LOCAL; radio <= IDC_MODIFY_SEARCH_BY_SUBNET; ++radio)
            SetWindowLongPtrW(page.GetDlgItem(radio), GWL_STYLE, StyleOf(radio) & ~LONG_PTR{WS_TABSTOP});
    }
    LONG_PTR StyleOf(int control) const { return GetWindowLongPtrW(page.GetDlgItem(control), GWL_STYLE); }

    TestApp app;
    CDialogEx window;
    AnyPage page{context, IDD_MODIFY_SEARCH};
};

// Of choices of which none is made, the keyboard comes to the first that can be.
TEST_F(SearchPageTest, IsReachedByTheKeyboardAtTheFirstChoiceThatCanBeMade) {
    page.EnableControl(IDC_MODIFY_SEARCH_LOCAL, false);
    page.KeepTabStop(IDC_MODIFY_SEARCH_LOCAL, IDC_MODIFY_SEARCH_BY_SUBNET);
    EXPECT_EQ(StyleOf(IDC_MODIFY_SEARCH_LOCAL) & WS_TABSTOP, 0);
    EXPECT_NE(StyleOf(IDC_MODIFY_SEARCH_LOCAL + 1) & WS_TABSTOP, 0);
}

using PageWithoutProgramTest = SettingsWorld;

TEST_F(PageWithoutProgramTest, CannotBeMade) {
    InstallDialogEx page(context, IDD_ADD_PORT);
    EXPECT_FALSE(page.CreateAsPage({}));
}

}  // namespace
