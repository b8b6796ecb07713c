#include <gmock/gmock.h>

#include <functional>
#include <thread>
#include <vector>

#include "framework/CDialogEx.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"

namespace {

using testing::Contains;

// Writes down its messages and does what a test wants once it is shown.
class TestDialog : public CDialogEx {
public:
    TestDialog() : CDialogEx(IDD_TEST) {}

    std::vector<UINT> messages;
    bool hadControls = false;
    std::function<void(TestDialog&)> whenShown = [](TestDialog&) {};

    void Click(int id) { PostMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), LPARAM(GetDlgItem(id))); }

protected:
    bool OnInitDialog() override {
        hadControls = GetDlgItem(IDC_TEST_EDIT) != nullptr;
        PostMessage(WM_APP);
        return true;
    }
    const MessageMap& GetMessageMap() const override {
        using On = EventsOf<TestDialog>;
        static const MessageMap map(&Events(), {On::Message(WM_APP, &TestDialog::OnShown),
                                                On::Click(IDC_TEST_BUTTON, &TestDialog::OnButton)});
        return map;
    }
    LRESULT WindowProc(const WindowMessage& message) override {
        messages.push_back(message.message);
        return CDialogEx::WindowProc(message);
    }

private:
    LRESULT OnShown(WPARAM, LPARAM) {
        whenShown(*this);
        return 0;
    }
    void OnButton() { EndDialog(5); }
};

class CDialogExTest : public testing::Test {
protected:
    TestApp app;
    TestDialog dialog;
};

TEST_F(CDialogExTest, SeesItsMessagesFromTheFirstOn) {
    ASSERT_TRUE(dialog.Create(IDD_TEST, nullptr));
    EXPECT_THAT(dialog.messages, Contains(UINT{WM_NCCREATE}));
    EXPECT_LT(std::find(dialog.messages.begin(), dialog.messages.end(), UINT{WM_NCCREATE}),
              std::find(dialog.messages.begin(), dialog.messages.end(), UINT{WM_INITDIALOG}));
    EXPECT_TRUE(dialog.hadControls);
}

TEST_F(CDialogExTest, CanBeMadeAnewWhenItsWindowIsGone) {
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_TRUE(dialog.Create(IDD_TEST, nullptr));
        EXPECT_EQ(CWnd::FromHandle(dialog.GetSafeHwnd()), &dialog);
        EXPECT_TRUE(dialog.DestroyWindow());
        EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
        EXPECT_EQ(dialog.messages.back(), UINT{WM_NCDESTROY});
    }
}

TEST_F(CDialogExTest, IsNotMadeWithoutATemplate) {
    EXPECT_FALSE(dialog.Create(4711, nullptr));
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    EXPECT_EQ(CDialogEx(4711).DoModal(), -1);
    // The window that is made next belongs to nobody by mistake.
    const HWND next = CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(CWnd::FromHandle(next), nullptr);
    DestroyWindow(next);
}

struct ModalEnd {
    int button;
    int result;
};

class ModalEndTest : public CDialogExTest, public testing::WithParamInterface<ModalEnd> {};

TEST_P(ModalEndTest, GivesTheResultOfItsEnd) {
    dialog.whenShown = [](TestDialog& shown) { shown.Click(GetParam().button); };
    EXPECT_EQ(dialog.DoModal(), GetParam().result);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

const ModalEnd ends[] = {{IDOK, IDOK}, {IDCANCEL, IDCANCEL}, {IDC_TEST_BUTTON, 5}};
INSTANTIATE_TEST_SUITE_P(Buttons, ModalEndTest, testing::ValuesIn(ends));

TEST_F(CDialogExTest, CancelsByEscapeAndByTheCloseBox) {
    dialog.whenShown = [](TestDialog& shown) { shown.PostMessage(WM_KEYDOWN, VK_ESCAPE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    dialog.whenShown = [](TestDialog& shown) { shown.PostMessage(WM_CLOSE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(CDialogExTest, EndsWhenAMessageEndsItThatAnotherThreadHasSent) {
    const DialogUser user(nullptr, [](HWND shown) {
        // Nothing is left to do that would wake the loop.
        EXPECT_TRUE(WaitUntil([&] { return GetUpdateRect(shown, nullptr, FALSE) == FALSE; }));
        SendMessageW(shown, WM_COMMAND, MAKEWPARAM(IDC_TEST_BUTTON, BN_CLICKED), 0);
    });
    EXPECT_EQ(dialog.DoModal(), 5);
}

TEST_F(CDialogExTest, KeepsItsParentDisabledAsLongAsItIsThere) {
    CDialogEx parent;
    EXPECT_TRUE(parent.Create(IDD_TEST, nullptr));
    app.SetMainWnd(&parent);
    bool wasEnabled = true;
    dialog.whenShown = [&](TestDialog& shown) {
        wasEnabled = IsWindowEnabled(parent.GetSafeHwnd()) != FALSE;
        shown.EndDialog(1);
    };
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(IsWindowEnabled(parent.GetSafeHwnd()));
}

TEST_F(CDialogExTest, LeavesAParentDisabledThatWasSoBefore) {
    CDialogEx parent;
    EXPECT_TRUE(parent.Create(IDD_TEST, nullptr));
    parent.EnableWindow(false);
    app.SetMainWnd(&parent);
    dialog.whenShown = [](TestDialog& shown) { shown.EndDialog(1); };
    dialog.DoModal();
    EXPECT_FALSE(IsWindowEnabled(parent.GetSafeHwnd()));
}

TEST_F(CDialogExTest, RunsOnAnotherThreadToo) {
    int result = 0;
    dialog.whenShown = [](TestDialog& shown) { shown.Click(IDC_TEST_BUTTON); };
    std::thread([&] { result = dialog.DoModal(); }).join();
    EXPECT_EQ(result, 5);
}

TEST_F(CDialogExTest, LeavesTheEndOfTheProgramToTheOuterLoop) {
    dialog.whenShown = [](TestDialog&) { PostQuitMessage(3); };
    dialog.DoModal();
    EXPECT_EQ(app.Run(), 3);
    EXPECT_EQ(app.ExitInstance(), 3);
}

TEST_F(CDialogExTest, IgnoresTheEndOfADialogThatIsNotModal) {
    EXPECT_TRUE(dialog.Create(IDD_TEST, nullptr));
    dialog.EndDialog(1);
    PumpMessages();
    EXPECT_NE(dialog.GetSafeHwnd(), nullptr);
}

// A control that is told of clicks and draws itself.
class TestButton : public CWnd {
public:
    void OnClicked() override { ++clicks; }
    void DrawItem(const DRAWITEMSTRUCT&) override { ++drawings; }

    int clicks = 0;
    int drawings = 0;
};

TEST_F(CDialogExTest, TellsAControlOfItsClickAndItsDrawing) {
    CDialogEx plain;
    EXPECT_TRUE(plain.Create(IDD_TEST, nullptr));
    TestButton button;
    button.SubclassDlgItem(IDC_TEST_BUTTON, plain);
    plain.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_TEST_BUTTON, BN_CLICKED), LPARAM(button.GetSafeHwnd()));
    EXPECT_EQ(button.clicks, 1);
    DRAWITEMSTRUCT drawing{};
    drawing.hwndItem = button.GetSafeHwnd();
    EXPECT_EQ(plain.SendMessage(WM_DRAWITEM, IDC_TEST_BUTTON, LPARAM(&drawing)), TRUE);
    EXPECT_EQ(button.drawings, 1);
}

}  // namespace
