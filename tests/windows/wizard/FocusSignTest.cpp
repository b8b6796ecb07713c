// What has the focus shows it, in the wizard's own colours and under each theme of high contrast, by pixels
// of the screen: https://www.w3.org/TR/WCAG22/ asks for 3 to 1 between a sign and what is around it (1.4.11).

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "tests/windows/world/ContrastTheme.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/DialogsWorld.h"
#include "tests/windows/world/FakeHighContrast.h"
#include "tests/windows/world/Picture.h"

namespace {

constexpr double focusSignLimit = 3.0;

// What the user can reach by the keyboard, the arrows included.
bool TakesFocus(HWND control) {
    const bool isRadio = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
    return IsWindowEnabled(control) != FALSE && (isRadio || (StyleOf(control) & WS_TABSTOP) != 0);
}

// In a field the caret is the sign, a line as high as a letter. Elsewhere it is as large as two lines along
// the shorter side.
std::ptrdiff_t SmallestSign(HWND control) {
    constexpr std::ptrdiff_t letter = 10;
    const std::wstring kind = ClassOf(control);
    if (kind == WC_EDITW || kind == L"RichEdit20W") return letter;
    RECT area{};
    GetWindowRect(control, &area);
    return std::ptrdiff_t{2} * std::min(area.right - area.left, area.bottom - area.top);
}

// Keeps the caret from blinking.
class SteadyCaret {
public:
    SteadyCaret() { SetCaretBlinkTime(INFINITE); }
    SteadyCaret(const SteadyCaret&) = delete;
    SteadyCaret& operator=(const SteadyCaret&) = delete;
    ~SteadyCaret() { SetCaretBlinkTime(former); }

private:
    UINT former = GetCaretBlinkTime();
};

struct ThemeCase {
    std::string name;
    std::optional<ContrastTheme> theme;
};

void PrintTo(const ThemeCase& theme, std::ostream* stream) {
    *stream << theme.name;
}

std::vector<ThemeCase> EveryTheme() {
    std::vector<ThemeCase> themes{{"Plain", std::nullopt}};
    for (const ContrastTheme& theme : EveryContrastTheme()) themes.push_back({theme.name, theme});
    return themes;
}

using FocusCase = std::tuple<DialogCase, ThemeCase>;

class FocusSignTest : public DialogsWorld, public testing::WithParamInterface<FocusCase> {
protected:
    FocusSignTest() : DialogsWorld("en") {
        AddPictures(tree);
        const std::optional<ContrastTheme>& theme = std::get<ThemeCase>(GetParam()).theme;
        if (!theme) return;
        setting.Switch(true);
        ContrastColours::Set(*theme);
    }

    // As for who uses the keyboard. What the page has sent itself comes first.
    std::unique_ptr<InstallDialogEx> Open() {
        auto dialog = DialogsWorld::Open(std::get<DialogCase>(GetParam()));
        PumpMessages();
        dialog->SendMessage(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL));
        return dialog;
    }

    static Picture PictureWithFocusOn(const InstallDialogEx& dialog, HWND focused, HWND control) {
        SetFocus(focused);
        PumpMessages();
        UpdateWindow(dialog.GetSafeHwnd());
        return PartOf(PictureOf(dialog.GetSafeHwnd()), dialog.GetSafeHwnd(), control);
    }

    static void ExpectSign(const InstallDialogEx& dialog, HWND control) {
        if (!TakesFocus(control)) return;
        const Picture without = PictureWithFocusOn(dialog, nullptr, control);
        const Picture with = PictureWithFocusOn(dialog, control, control);
        EXPECT_EQ(GetFocus(), control);
        const std::vector<double> contrasts = ContrastsBetween(without, with);
        const auto seen =
            std::ranges::count_if(contrasts, [](double contrast) { return contrast >= focusSignLimit; });
        EXPECT_GE(seen, SmallestSign(control))
            << "in " << GetDlgCtrlID(control) << ", of " << contrasts.size() << " pixels";
    }

    ContrastColours colours;
    FakeHighContrast setting;
    SteadyCaret caret;
};

TEST_P(FocusSignTest, StandsOut) {
    const auto dialog = Open();
    InEachView(*dialog, [&] { ForEachSeen(*dialog, [&](HWND control) { ExpectSign(*dialog, control); }); });
}

INSTANTIATE_TEST_SUITE_P(All, FocusSignTest,
                         testing::Combine(testing::ValuesIn(EveryDialog()), testing::ValuesIn(EveryTheme())),
                         [](const testing::TestParamInfo<FocusCase>& given) {
                             return std::get<DialogCase>(given.param).name + std::string("_") +
                                    std::get<ThemeCase>(given.param).name;
                         });

}  // namespace
