// What a screen reader says of every dialog: each control with its name, its role and its state, in the order
// of the Tab key. Names and roles are those that the system gives to its standard controls for Active
// Accessibility:
// https://learn.microsoft.com/windows/win32/winauto/appendix-a--supported-user-interface-elements-reference
//
// What was read aloud and found good stands in docs/spoken-pages.txt.

#include <windows.h>

#include <commctrl.h>
#include <oleacc.h>

#include <array>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "CommonLib/Files.h"
#include "CommonLib/Utf8.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/EveryDialog.h"
#include "tests/windows/world/FakeAnnotations.h"
#include "tests/windows/world/SampleLanguages.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

namespace {

// The text without the mark of its access key.
std::wstring PlainName(std::wstring text) {
    const std::size_t mark = text.find(L'&');
    if (mark != std::wstring::npos) text.erase(mark, 1);
    return text;
}

std::wstring AccessKeyIn(const std::wstring& text) {
    const std::size_t mark = text.find(L'&');
    if (mark == std::wstring::npos || mark + 1 >= text.size()) return {};
    return L", Alt+" + std::wstring(1, static_cast<wchar_t>(towupper(text[mark + 1])));
}

// The label of a control is the static text before it that can be seen.
std::wstring LabelBefore(HWND control) {
    HWND before = GetWindow(control, GW_HWNDPREV);
    while (before != nullptr && IsWindowVisible(before) == FALSE) before = GetWindow(before, GW_HWNDPREV);
    const bool isText = before != nullptr && (SendMessageW(before, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0;
    return isText ? TextOf(before) : std::wstring();
}

std::wstring ColumnsOf(HWND list) {
    std::wstring columns;
    const int count = Header_GetItemCount(ListView_GetHeader(list));
    for (int column = 0; column < count; ++column) {
        std::array<wchar_t, 128> text{};
        LVCOLUMNW heading{
            .mask = LVCF_TEXT, .pszText = text.data(), .cchTextMax = static_cast<int>(text.size())};
        SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&heading));
        columns += (column == 0 ? L"; columns " : L", ") + std::wstring(text.data());
    }
    return columns;
}

std::wstring RoleOfButton(HWND control) {
    if (FakeAnnotations::RoleOf(control) == ROLE_SYSTEM_LINK) return L"link";
    switch (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) {
        case BS_AUTORADIOBUTTON:
        case BS_RADIOBUTTON:
            return L"radio button";
        case BS_AUTOCHECKBOX:
            return L"check box";
        case BS_GROUPBOX:
            return L"group";
        default:
            return L"button";
    }
}

std::wstring StateOf(HWND control) {
    std::wstring state;
    if (IsWindowEnabled(control) == FALSE) state += L", unavailable";
    const bool isButton = ClassOf(control) == WC_BUTTONW;
    if (isButton && SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED) state += L", checked";
    if (FakeAnnotations::IsNews(control)) state += L", said when it changes";
    if (const std::wstring description = FakeAnnotations::DescriptionOf(control); !description.empty())
        state += L"; \"" + description + L"\"";
    return state;
}

struct Spoken {
    std::wstring role;
    std::wstring text;  // with its access key
    std::wstring more;
};

Spoken SpokenOf(HWND control) {
    const std::wstring kind = ClassOf(control);
    if (kind == WC_STATICW) return {.role = L"text", .text = TextOf(control)};
    if (kind == WC_BUTTONW) return {.role = RoleOfButton(control), .text = TextOf(control)};
    if (kind == WC_EDITW) return {.role = L"edit", .text = LabelBefore(control)};
    if (kind == WC_COMBOBOXW)
        return {.role = L"combo box", .text = LabelBefore(control), .more = L"; " + TextOf(control)};
    if (kind == WC_LISTVIEWW)
        return {.role = L"list", .text = LabelBefore(control), .more = ColumnsOf(control)};
    if (kind == PROGRESS_CLASSW) return {.role = L"progress bar", .text = LabelBefore(control)};
    if (kind == WC_LISTBOXW) return {.role = L"list", .text = LabelBefore(control)};
    return {.role = L"document", .text = LabelBefore(control)};
}

class SpokenPagesTest : public SettingsWorld, public testing::WithParamInterface<DialogCase> {
protected:
    SpokenPagesTest() {
        AddTexts(SampleTexts("en"));
        ReadTextsAnew();
        tree.Add(L"Notices\\EULA\\eula_en.txt", "Be kind.\n");
        Settings().SetString(Tag::OEM, L"Halvenny");
        Settings().SetString(Tag::INFOCENTER_LINK, L"http://help.test");
        Settings().SetString(Tag::PRODUCT_REGISTRATION_LINK, L"http://register.test");
        Settings().SetString(Tag::INSTALL_STATUS, L"SUCCESS");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        window.ShowWindow(SW_SHOW);
    }

    // A page appears, and a dialog over it is shown.
    std::unique_ptr<InstallDialogEx> Open() {
        auto dialog = GetParam().make({context, window, applications, drivers, configuration});
        EXPECT_TRUE(dialog->Create(dialog->TemplateId(), &window));
        const bool isPage = (GetWindowLongPtrW(dialog->GetSafeHwnd(), GWL_STYLE) & WS_CHILD) != 0;
        if (isPage) {
            dialog->Appear();
        } else {
            dialog->ShowWindow(SW_SHOW);
        }
        return dialog;
    }

    // One line for the dialog and one for each of its controls.
    static std::string Speak(const InstallDialogEx& dialog) {
        std::wstring spoken = L"dialog \"" + TextOf(dialog.GetSafeHwnd()) + L"\"\n";
        for (HWND control = GetWindow(dialog.GetSafeHwnd(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            if (IsWindowVisible(control) == FALSE) continue;
            const auto [role, text, more] = SpokenOf(control);
            const bool isFrame = text.empty() && (role == L"group" || role == L"text");
            if (!isFrame)
                spoken += L"  " + role + L" \"" + PlainName(text) + L"\"" + AccessKeyIn(text) +
                          StateOf(control) + more + L"\n";
        }
        return ToUtf8(spoken);
    }

    // The part of the document about this dialog.
    static std::string Accepted(const std::string& name) {
        std::istringstream document(
            ReadBytes(std::filesystem::path(GetExeDirectory()) / L"../../../strings/spoken-pages.txt"));
        std::string part;
        bool isIn = false;
        for (std::string line; std::getline(document, line);) {
            if (line.starts_with("== ")) {
                isIn = line == "== " + name;
            } else if (isIn && !line.empty()) {
                part += line + "\n";
            }
        }
        return part;
    }

    FakeAnnotations annotations;
    AppCatalogue applications;
    DriverInfo drivers;
    DriverConfiguration configuration{Settings(), applications, drivers};
    TestApp app;
    CDialogEx window;
};

TEST_P(SpokenPagesTest, SayWhatTheyAre) {
    const auto dialog = Open();
    EXPECT_EQ(Speak(*dialog), Accepted(GetParam().name));
}

TEST_P(SpokenPagesTest, NameEveryControlThatTakesInput) {
    const auto dialog = Open();
    EXPECT_NE(TextOf(dialog->GetSafeHwnd()), L"");
    for (HWND control = GetWindow(dialog->GetSafeHwnd(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const bool takesInput = (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0;
        if (IsWindowVisible(control) == FALSE || !takesInput) continue;
        EXPECT_NE(SpokenOf(control).text, L"") << GetDlgCtrlID(control);
    }
}

TEST_P(SpokenPagesTest, LeaveNothingSaidOfWhatHasGone) {
    const auto dialog = Open();
    dialog->DestroyWindow();
    EXPECT_EQ(FakeAnnotations::Count(), 0U);
}

INSTANTIATE_TEST_SUITE_P(All, SpokenPagesTest, testing::ValuesIn(EveryDialog()),
                         [](const testing::TestParamInfo<DialogCase>& given) {
                             return std::string(given.param.name);
                         });

}  // namespace
