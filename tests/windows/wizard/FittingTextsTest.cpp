// The texts of the sample's languages in the room that the dialogs have for them, in the font of the pages.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "CommonLib/Utf8.h"
#include "framework/Handles.h"
#include "framework/TextSize.h"
#include "resources/resource.h"
#include "settings/TextKeys.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/SampleLanguages.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// What a control of a dialog says at other times than when it is new.
struct LaterText {
    std::string_view dialog;
    int control = 0;
    TextId key;
};

constexpr LaterText laterTexts[] = {
    {"Start", IDC_START_TITLE, TextKey::AMAZON_WELCOME_HEADER},
    {"Start", IDC_START_TEXT, TextKey::AMAZON_WELCOME_TEXT},
    {"Progress", IDC_PROGRESS_STATUS_LINE, TextKey::CANCELING_TEXT},
    {"Restart", IDC_REBOOT_TEXT, TextKey::USB_REBOOT_TEXT},
    {"Devices", IDC_DISCOVERY_SELECTION_TEXT, TextKey::SELECT_PRINTSCAN_TEXT},
    {"Devices", IDC_DISCOVERY_SELECTION_TEXT, TextKey::DOWNLOAD_INSTALL_TITLE},
    {"Devices", IDC_DISCOVERY_LIST, TextKey::DISCOVERED_LIST_COLUMN_SEARCHING},
    {"Devices", IDC_DISCOVERY_LIST, TextKey::NO_PRINTER_FOUND},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::INSTALL_CANCELED_TEXT},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::INSTALLATION_FAILED_TEXT},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::USB_FINAL_TEXT},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::INSTALL_COMPLETE_TEXT},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::DRIVER_INSTALL_COMPLETE_TEXT},
    {"Finish", IDC_OUTCOME_TITLE, TextKey::AMAZON_INSTALL_COMPLETE_HEADER},
    {"Finish", IDC_FINISH_SECOND_TEXT, TextKey::AMAZON_INSTALL_COMPLETE_TEXT1},
    {"Finish", IDC_FINISH_SECOND_TEXT, TextKey::AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1},
    {"Finish", IDC_FINISH, TextKey::NEXT_BUTTON},
    {"Port", IDC_ADD_PORT_KIND, TextKey::DISCOVERED_PORTS},
    {"Port", IDC_ADD_PORT_KIND, TextKey::IP_PORT},
    {"Port", IDC_ADD_PORT_KIND, TextKey::UNC_PORT},
};

// How a control shows its text: over how many lines, and what beside the text takes room.
struct Manner {
    bool isShown = true;
    bool wraps = false;
    bool hasAccessKeys = true;
    int beside = 0;  // in pixels
};

Manner MannerOfButton(HWND control, LONG_PTR style) {
    if (IsLink(control)) return {};
    if ((style & BS_TYPEMASK) == BS_AUTORADIOBUTTON || (style & BS_TYPEMASK) == BS_AUTOCHECKBOX)
        return {.wraps = (style & BS_MULTILINE) != 0, .beside = 2 * GetSystemMetrics(SM_CXMENUCHECK)};
    const int frame = 4 * GetSystemMetrics(SM_CXEDGE);
    return {.beside = frame};
}

Manner MannerOf(HWND control) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    const std::wstring kind = ClassOf(control);
    // The button of the help and those with a picture do not show their text.
    if (GetDlgCtrlID(control) == IDC_HELP_BUTTON || (kind == WC_BUTTONW && (style & BS_ICON) != 0))
        return {.isShown = false};
    if (kind == WC_BUTTONW) return MannerOfButton(control, style);
    if (kind == WC_STATICW) return {.wraps = true, .hasAccessKeys = (style & SS_NOPREFIX) == 0};
    if (kind == WC_COMBOBOXW) return {.hasAccessKeys = false, .beside = 2 * GetSystemMetrics(SM_CXVSCROLL)};
    if (kind == WC_LISTVIEWW) return {.hasAccessKeys = false, .beside = GetSystemMetrics(SM_CXVSCROLL)};
    return {.isShown = false};
}

// Languages written without blanks, whose lines are broken by a dictionary that not every system has.
bool NeedsADictionary(const std::string& language) {
    return language == "th";
}

class FittingTextsTest : public SettingsWorld, public testing::WithParamInterface<std::string> {
protected:
    FittingTextsTest() {
        AddTexts(SampleTexts(GetParam()));
        ReadTextsAnew();
        tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
        Settings().SetString(Tag::OEM, L"Halvenny");
        Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
        Settings().SetString(Tag::PRODUCT_REGISTRATION_LINK, L"http://register.test");
        FollowTextSize(IDD_MAIN);
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    }

    // The size that a text takes where it may be as wide as that.
    static SIZE SizeOfText(HWND control, const std::wstring& text, const Manner& manner, int width) {
        const WindowDc context(control);
        const SelectedObject font(context.get(),
                                  reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        const UINT lines = manner.wraps ? DT_WORDBREAK : DT_SINGLELINE;
        const UINT keys = manner.hasAccessKeys ? 0 : DT_NOPREFIX;
        RECT area{0, 0, width, 0};
        DrawTextW(context.get(), text.c_str(), static_cast<int>(text.size()), &area,
                  DT_CALCRECT | lines | keys);
        return {area.right, area.bottom};
    }

    static SIZE RoomOf(HWND control) {
        RECT room{};
        GetClientRect(control, &room);
        return {room.right, room.bottom};
    }

    // As if every line but the last stayed empty by a tenth.
    static SIZE SizeOfBrokenText(HWND control, const std::wstring& text, int width) {
        const SIZE line = SizeOfText(control, text, {}, 0);
        const int lines = line.cx * 10 / 9 / width + 1;
        return {std::min<LONG>(line.cx, width), line.cy * lines};
    }

    static void ExpectFit(HWND control, const std::wstring& text) {
        const Manner manner = MannerOf(control);
        if (!manner.isShown || text.empty()) return;
        SIZE room = RoomOf(control);
        const bool isOnlyHeard = room.cx == 0 && room.cy == 0;
        if (isOnlyHeard) return;
        room.cx -= manner.beside;
        const SIZE size = manner.wraps && NeedsADictionary(GetParam())
                              ? SizeOfBrokenText(control, text, room.cx)
                              : SizeOfText(control, text, manner, room.cx);
        EXPECT_LE(size.cx, room.cx) << "too wide in " << GetDlgCtrlID(control) << ": " << ToUtf8(text);
        if (ClassOf(control) != WC_LISTVIEWW) {
            EXPECT_LE(size.cy, room.cy) << "too high in " << GetDlgCtrlID(control) << ": " << ToUtf8(text);
        }
    }

    void ExpectTextsToFit(const DialogCase& dialogCase) {
        SCOPED_TRACE(dialogCase.name);
        const std::unique_ptr<InstallDialogEx> dialog =
            dialogCase.make({context, window, applications, drivers, configuration});
        ASSERT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        for (HWND control = GetWindow(dialog->GetSafeHwnd(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            const std::wstring kind = ClassOf(control);
            if (kind == WC_BUTTONW || kind == WC_STATICW) ExpectFit(control, TextOf(control));
        }
        for (const LaterText& later : laterTexts) {
            if (later.dialog == dialogCase.name)
                ExpectFit(dialog->GetDlgItem(later.control), Texts().GetString(later.key));
        }
    }

    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(FittingTextsTest, FitTheirControls) {
    for (const DialogCase& dialog : EveryDialog()) ExpectTextsToFit(dialog);
}

INSTANTIATE_TEST_SUITE_P(Languages, FittingTextsTest, testing::ValuesIn(SampleLanguages()),
                         [](const testing::TestParamInfo<std::string>& given) { return given.param; });

// The languages whose letters the system brings, since a font with all of them would be larger than the
// program.
bool HasLettersOfTheSystem(const std::string& language) {
    static constexpr std::array<std::string_view, 4> languages = {"ja", "ko", "zh_cn", "zh_tw"};
    return std::ranges::find(languages, language) != languages.end();
}

class LettersTest : public testing::TestWithParam<std::string> {};

TEST_P(LettersTest, AreAllInTheFontOfThePages) {
    const MemoryDc context(CreateCompatibleDC(nullptr));
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(IDR_FONT), L"BINARY");
    DWORD installed = 0;
    const HANDLE fonts = AddFontMemResourceEx(LockResource(LoadResource(nullptr, resource)),
                                              SizeofResource(nullptr, resource), nullptr, &installed);
    {
        const Font font(CreateFontW(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                                    L"Velmora"));
        const SelectedObject selected(context.get(), font.get());
        const std::wstring text = FromUtf8(SampleTexts(GetParam()));
        std::vector<WORD> glyphs(text.size());
        GetGlyphIndicesW(context.get(), text.data(), static_cast<int>(text.size()), glyphs.data(),
                         GGI_MARK_NONEXISTING_GLYPHS);
        std::wstring missing;
        for (std::size_t place = 0; place < text.size(); ++place) {
            const bool isShown = text[place] >= L' ';
            if (isShown && glyphs[place] == 0xFFFF && missing.find(text[place]) == std::wstring::npos)
                missing += text[place];
        }
        EXPECT_EQ(missing.empty(), !HasLettersOfTheSystem(GetParam())) << ToUtf8(missing);
    }
    RemoveFontMemResourceEx(fonts);
}

INSTANTIATE_TEST_SUITE_P(Languages, LettersTest, testing::ValuesIn(SampleLanguages()),
                         [](const testing::TestParamInfo<std::string>& given) { return given.param; });

}  // namespace
