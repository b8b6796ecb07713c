#include <gmock/gmock.h>

#include <stdexcept>

#include "framework/CDialogEx.h"
#include "framework/CWnd.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/TestApp.h"

namespace {

using testing::ElementsAre;

// Adds to what the edit control does of itself.
class ShoutingEdit : public CWnd {
public:
    int texts = 0;
    bool throws = false;

protected:
    const MessageMap& GetMessageMap() const override {
        using On = EventsOf<ShoutingEdit>;
        static const MessageMap map(nullptr, {On::Message(WM_SETTEXT, &ShoutingEdit::OnSetText),
                                              On::Message(WM_APP, &ShoutingEdit::OnNested)});
        return map;
    }

private:
    LRESULT OnSetText(WPARAM, LPARAM) {
        if (throws) throw std::runtime_error("no text");
        ++texts;
        return Default();
    }
    // The message that is sent meanwhile must not take the outer one's place.
    LRESULT OnNested(WPARAM, LPARAM) {
        SetWindowText(L"inner");
        return Default();
    }
};

class CWndTest : public testing::Test {
protected:
    CWndTest() {
        EXPECT_TRUE(dialog.Create(IDD_TEST, nullptr));
        edit.SubclassDlgItem(IDC_TEST_EDIT, dialog);
    }

    TestApp app;
    CDialogEx dialog;
    ShoutingEdit edit;
};

TEST_F(CWndTest, IsFoundByItsHandleUntilTheWindowGoes) {
    const HWND handle = edit.GetSafeHwnd();
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(CWnd::FromHandle(handle), &edit);
    dialog.DestroyWindow();
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr);
}

TEST_F(CWndTest, BindsToNoControlThatTheDialogLacks) {
    CWnd other;
    EXPECT_FALSE(other.SubclassDlgItem(4711, dialog));
    EXPECT_EQ(other.GetSafeHwnd(), nullptr);
}

TEST_F(CWndTest, LetsTheControlDoItsPartOfTheHandling) {
    edit.SetWindowText(L"shown");
    EXPECT_EQ(edit.texts, 1);
    EXPECT_EQ(edit.GetWindowText(), L"shown");
}

TEST_F(CWndTest, PassesWhatItDoesNotNameToTheControl) {
    edit.SetWindowText(L"abc");
    EXPECT_EQ(edit.SendMessage(WM_GETTEXTLENGTH), 3);
    edit.SendMessage(EM_SETSEL, 1, 2);
    EXPECT_EQ(edit.SendMessage(EM_GETSEL), MAKELRESULT(1, 2));
}

TEST_F(CWndTest, HandlesAMessageInsideAnother) {
    EXPECT_EQ(edit.SendMessage(WM_APP), 0);
    EXPECT_EQ(edit.GetWindowText(), L"inner");
}

TEST_F(CWndTest, KeepsAnExceptionInsideAndTellsTheApplication) {
    edit.throws = true;
    EXPECT_EQ(edit.SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"lost")), 0);
    EXPECT_EQ(edit.GetWindowText(), L"");
    EXPECT_THAT(app.Exceptions(), ElementsAre("window procedure: no text"));
}

TEST_F(CWndTest, GivesALongTextWhole) {
    const std::wstring text(20000, L'x');
    edit.SetWindowText(text);
    EXPECT_EQ(edit.GetWindowText(), text);
}

TEST_F(CWndTest, DestroysItsWindowWithItself) {
    HWND handle = nullptr;
    {
        CDialogEx other;
        EXPECT_TRUE(other.Create(IDD_TEST, nullptr));
        handle = other.GetSafeHwnd();
        EXPECT_TRUE(IsWindow(handle));
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST(UnboundWindowTest, HasNothingToDestroyAndNoText) {
    CWnd window;
    EXPECT_FALSE(window.DestroyWindow());
    EXPECT_EQ(window.GetWindowText(), L"");
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

}  // namespace
