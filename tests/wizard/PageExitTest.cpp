// The ways out that all pages have: Cancel, Escape and the close box.

#include "resources/resource.h"
#include "tests/wizard/PageTest.h"

using testing::IsEmpty;
using testing::Not;

namespace {

struct PageCase {
    const char* name;
    const wchar_t* settings;
    // The control by which the page is known.
    int control;
};

void PrintTo(const PageCase& page, std::ostream* stream) {
    *stream << page.name;
}

class PageExitTest : public PageTest, public testing::WithParamInterface<PageCase> {
protected:
    void SetUp() override {
        PageTest::SetUp();
        UseSettings(GetParam().settings);
        tree.Add({.path = L"Applications\\a.msi"});
        StartOn(GetParam().control);
    }

    void ExpectToStay() {
        AnswerCancel(IDNO);
        EXPECT_TRUE(IsShown(GetParam().control));
        EXPECT_TRUE(IsEnabled(IDCANCEL));
    }
};

TEST_P(PageExitTest, AsksAndStaysOnNo) {
    wizard.Press(IDCANCEL);
    ExpectToStay();
    wizard.PressKey(VK_ESCAPE);
    ExpectToStay();
    wizard.CloseMainWindow();
    ExpectToStay();
    EXPECT_THAT(BasicLog(), Not(HasRecord(L"", L"User chose to cancel the installation.")));
}

TEST_P(PageExitTest, AsksOnceHoweverOftenItIsClosed) {
    wizard.CloseMainWindow();
    const HWND question = wizard.WaitForBox().window;
    wizard.CloseMainWindow();
    wizard.Settle();
    EXPECT_EQ(wizard.WaitForBox().window, question);
    ExpectToStay();
    EXPECT_FALSE(wizard.FindBox());
    wizard.Press(IDCANCEL);
    ExpectToStay();
}

TEST_P(PageExitTest, EndsTheProgramOnYes) {
    wizard.PressKey(VK_ESCAPE);
    AnswerCancel(IDYES);
    wizard.WaitForEnd();
    EXPECT_EQ(wizard.ExitCode(), 0U);
    EXPECT_THAT(BasicLog(), HasRecord(L"", L"User chose to cancel the installation."));
    EXPECT_THAT(Installs(), IsEmpty());
}

TEST_P(PageExitTest, IsDeafWhileCancelIsDisabled) {
    EnableWindow(wizard.FindControl(IDCANCEL), FALSE);
    wizard.PressKey(VK_ESCAPE);
    wizard.CloseMainWindow();
    EXPECT_TRUE(StaysQuiet());
    EXPECT_TRUE(IsShown(GetParam().control));
}

INSTANTIATE_TEST_SUITE_P(
    Pages, PageExitTest,
    testing::Values(
        PageCase{"Start", L"<HIDE_EULA>true</HIDE_EULA>", IDC_START_TITLE},
        PageCase{"Licence", L"<HIDE_START>true</HIDE_START>", IDC_LICENCE_TEXT},
        PageCase{
            "Manufacturer",
            L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA><MANUFACTURERS>A|B</MANUFACTURERS>",
            IDC_MANUFACTURER_LIST},
        PageCase{"Bypass",
                 L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
                 L"<TAG_DIALOG_SHOW_BYPASS>true</TAG_DIALOG_SHOW_BYPASS>",
                 IDC_BYPASS_REINSTALL},
        PageCase{"Connectivity",
                 L"<HIDE_START>true</HIDE_START><HIDE_EULA>true</HIDE_EULA>"
                 L"<AMAZON_SUPPORTED>TRUE</AMAZON_SUPPORTED>",
                 IDC_CONNECTIVITY_NETWORK}),
    [](const testing::TestParamInfo<PageCase>& page) { return std::string(page.param.name); });

}  // namespace
