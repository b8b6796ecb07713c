// Every dialog in the colours of the high-contrast themes, as it stands on the screen.

#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <set>
#include <tuple>

#include "tests/windows/world/ContrastTheme.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/DialogsWorld.h"
#include "tests/windows/world/FakeHighContrast.h"
#include "tests/windows/world/Picture.h"

namespace {

// A button that the visual style draws, in colours of its own.
bool IsPushButton(HWND control) {
    return ClassOf(control) == WC_BUTTONW && (StyleOf(control) & BS_TYPEMASK) == BS_PUSHBUTTON;
}

// The place among the system's colours of the text of that control; none where it shows no text.
std::optional<int> TextColourOf(HWND control) {
    const std::wstring kind = ClassOf(control);
    const bool isField = kind == WC_EDITW || kind == WC_LISTVIEWW || kind == L"RichEdit20W";
    const bool isText = isField || kind == WC_STATICW || kind == WC_BUTTONW;
    if (!isText || IsPushButton(control) || (StyleOf(control) & BS_ICON) != 0) return std::nullopt;
    if (IsWindowEnabled(control) == FALSE) return COLOR_GRAYTEXT;
    if (IsLink(control)) return COLOR_HOTLIGHT;
    return isField ? COLOR_WINDOWTEXT : COLOR_BTNTEXT;
}

std::set<COLORREF> SystemColours() {
    std::set<COLORREF> colours;
    for (int place = 0; place <= COLOR_MENUBAR; ++place) colours.insert(GetSysColor(place));
    return colours;
}

std::array<int, 3> PartsOf(COLORREF colour) {
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

bool AreNear(const std::array<int, 3>& one, const std::array<int, 3>& other, int tolerance) {
    return std::ranges::equal(one, other, [&](int a, int b) { return std::abs(a - b) <= tolerance; });
}

// Whether a smooth font could have mixed the colour from the two.
bool IsMixed(COLORREF colour, COLORREF one, COLORREF other) {
    constexpr int steps = 51;
    constexpr int tolerance = 20;
    const auto from = PartsOf(one);
    const auto to = PartsOf(other);
    for (int step = 0; step <= steps; ++step) {
        std::array<int, 3> mixed{};
        for (std::size_t part = 0; part < mixed.size(); ++part)
            mixed[part] = (from[part] * (steps - step) + to[part] * step) / steps;
        if (AreNear(mixed, PartsOf(colour), tolerance)) return true;
    }
    return false;
}

// What is neither one of the system's colours nor mixed from two of them.
std::set<COLORREF> ForeignColours(const std::set<COLORREF>& colours) {
    const std::set<COLORREF> systems = SystemColours();
    const auto isSystems = [&](COLORREF colour) {
        return std::ranges::any_of(systems, [&](COLORREF one) {
            return std::ranges::any_of(
                systems, [&](COLORREF other) { return one <= other && IsMixed(colour, one, other); });
        });
    };
    std::set<COLORREF> foreign;
    std::ranges::remove_copy_if(colours, std::inserter(foreign, foreign.end()), isSystems);
    return foreign;
}

// The thin strokes of a smooth font may not reach the colour itself.
bool HasText(const std::set<COLORREF>& colours, COLORREF text) {
    constexpr int tolerance = 96;
    return std::ranges::any_of(
        colours, [&](COLORREF colour) { return AreNear(PartsOf(colour), PartsOf(text), tolerance); });
}

void ShowNoFocus(HWND list) {
    ListView_SetItemState(list, -1, 0, LVIS_FOCUSED);
    UpdateWindow(list);
}

// The colours of the pixels within the control's border.
std::set<COLORREF> ColoursIn(HWND control) {
    const std::vector<COLORREF> pixels = PictureOf(control).pixels;
    return {pixels.begin(), pixels.end()};
}

using ContrastCase = std::tuple<DialogCase, ContrastTheme>;

class ContrastPagesTest : public DialogsWorld, public testing::WithParamInterface<ContrastCase> {
protected:
    ContrastPagesTest()
        : DialogsWorld("en"),
          list(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD, 0, 0, 0, 0, window.GetSafeHwnd(), nullptr,
                               nullptr, nullptr)) {}

    // The library of the controls keeps the colours and reads them again when a control of its is told.
    void TurnOn() const {
        setting.Switch(true);
        ContrastColours::Set(std::get<ContrastTheme>(GetParam()));
        SendMessageW(list, WM_SYSCOLORCHANGE, 0, 0);
    }

    std::unique_ptr<InstallDialogEx> Open() { return DialogsWorld::Open(std::get<DialogCase>(GetParam())); }

    // Without the focus, whose frames and caret stand over the texts.
    static void ExpectReadable(const InstallDialogEx& dialog) {
        SetFocus(nullptr);
        PumpMessages();
        UpdateWindow(dialog.GetSafeHwnd());
        ForEachSeen(dialog, &ExpectReadableText);
    }

    static void ExpectReadableText(HWND control) {
        const std::optional<int> text = TextColourOf(control);
        if (!text) return;
        if (ClassOf(control) == WC_LISTVIEWW) ShowNoFocus(control);
        const std::set<COLORREF> colours = ColoursIn(control);
        const int id = GetDlgCtrlID(control);
        EXPECT_TRUE(HasText(colours, GetSysColor(*text)))
            << "no text in " << id << ": " << testing::PrintToString(colours);
        EXPECT_THAT(ForeignColours(colours), testing::IsEmpty()) << "in " << id;
    }

    ContrastColours colours;
    FakeHighContrast setting;
    HWND list;
};

TEST_P(ContrastPagesTest, CanBeRead) {
    TurnOn();
    const std::unique_ptr<InstallDialogEx> dialog = Open();
    InEachView(*dialog, [&] { ExpectReadable(*dialog); });
}

TEST_P(ContrastPagesTest, CanBeReadWhenTheThemeComesLater) {
    const std::unique_ptr<InstallDialogEx> dialog = Open();
    PumpMessages();
    TurnOn();
    ExpectReadable(*dialog);
}

INSTANTIATE_TEST_SUITE_P(All, ContrastPagesTest,
                         testing::Combine(testing::ValuesIn(EveryDialog()),
                                          testing::ValuesIn(EveryContrastTheme())),
                         [](const testing::TestParamInfo<ContrastCase>& given) {
                             return std::get<DialogCase>(given.param).name + std::string("_") +
                                    std::get<ContrastTheme>(given.param).name;
                         });

}  // namespace
