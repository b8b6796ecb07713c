// What a message box looks like in the language of the package.

#include <windows.h>

#include <gmock/gmock.h>

#include "settings/TextKeys.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/SettingsWorld.h"
#include "wizard/LocalizedMessage.h"

namespace {

struct ShownBox {
    std::wstring text;
    std::wstring title;
    UINT style = 0;
};

ShownBox shownBox;

int WINAPI NoteBox(HWND, LPCWSTR text, LPCWSTR title, UINT style) {
    shownBox = {.text = text, .title = title, .style = style};
    return IDOK;
}

class LocalizedMessageTest : public SettingsWorld {
protected:
    void Show(const char* readingOrder) {
        AddTexts(
            "<CANCEL_CONFIRMATION_TEXT>Sure?</CANCEL_CONFIRMATION_TEXT><INSTALL_TITLE>Setup</INSTALL_TITLE>"
            "<READING_ORDER>" +
            std::string(readingOrder) + "</READING_ORDER>");
        ReadTextsAnew();
        EXPECT_EQ(ShowLocalizedMessage(Texts(), nullptr, TextKey::CANCEL_CONFIRMATION_TEXT,
                                       TextKey::INSTALL_TITLE, MB_YESNO | MB_ICONWARNING),
                  IDOK);
        EXPECT_EQ(shownBox.text, L"Sure?");
        EXPECT_EQ(shownBox.title, L"Setup");
    }

    PatchedImport box{"MessageBoxW", &NoteBox};
};

TEST_F(LocalizedMessageTest, IsReadFromTheLeft) {
    Show("LTR");
    EXPECT_EQ(shownBox.style, UINT{MB_YESNO | MB_ICONWARNING});
}

TEST_F(LocalizedMessageTest, IsReadFromTheRightWhereTheLanguageIs) {
    Show("RTL");
    EXPECT_EQ(shownBox.style, UINT{MB_YESNO | MB_ICONWARNING | MB_RIGHT | MB_RTLREADING});
}

}  // namespace
