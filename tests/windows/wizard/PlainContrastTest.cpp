// Every dialog in the wizard's own colours: texts and signs stand out from their ground, by pixels of the
// screen. The limits are those of https://www.w3.org/TR/WCAG22/ for texts (1.4.3) and for signs (1.4.11),
// which do not ask it of what is disabled, nor of the frames that the system draws around its fields.

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "framework/Handles.h"
#include "resources/resource.h"
#include "tests/windows/world/DialogUser.h"
#include "tests/windows/world/DialogsWorld.h"
#include "tests/windows/world/Picture.h"

namespace {

constexpr double textLimit = 4.5;
constexpr double signLimit = 3.0;

// The letters of a page's main button are white on a green that is settled: the one exception.
constexpr COLORREF mainButtonFace = RGB(0x00, 0xAD, 0x21);
constexpr double mainButtonLimit = 3.0;

// What is selected has the colours that the user has for it, whatever they are.
double SelectionLimit() {
    return std::min(textLimit, ContrastOf(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)));
}

LONG_PTR ButtonKindOf(HWND control) {
    return ClassOf(control) == WC_BUTTONW ? StyleOf(control) & BS_TYPEMASK : -1;
}

bool IsFlatButton(HWND control) {
    return ButtonKindOf(control) == BS_OWNERDRAW && (StyleOf(control) & BS_FLAT) != 0;
}

bool HasPictureForText(HWND control) {
    const bool isChoice = ClassOf(control) == WC_BUTTONW && (StyleOf(control) & BS_ICON) != 0;
    return isChoice || GetDlgCtrlID(control) == IDC_HELP_BUTTON;
}

bool ShowsText(HWND control) {
    return !HasPictureForText(control) && ButtonKindOf(control) != BS_GROUPBOX &&
           ClassOf(control) != PROGRESS_CLASSW;
}

// Gives a control its own font without smooth edges, so that the pixels of a text have its colour and no
// mixture.
class SharpFont {
public:
    explicit SharpFont(HWND smooth) : control(smooth), former(SendMessageW(smooth, WM_GETFONT, 0, 0)) {
        LOGFONTW description{};
        GetObjectW(reinterpret_cast<HFONT>(former), sizeof(description), &description);
        description.lfQuality = NONANTIALIASED_QUALITY;
        font.reset(CreateFontIndirectW(&description));
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
    }
    SharpFont(const SharpFont&) = delete;
    SharpFont& operator=(const SharpFont&) = delete;
    ~SharpFont() { SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(former), FALSE); }

private:
    HWND control;
    LRESULT former;
    Font font;
};

// What stood in a place, and what stands there now.
struct Change {
    Picture before;
    Picture after;
};

// Takes the picture off a button.
class WithoutPicture {
public:
    explicit WithoutPicture(HWND bare)
        : control(bare),
          picture(ButtonKindOf(bare) < 0 ? 0 : SendMessageW(bare, BM_GETIMAGE, IMAGE_ICON, 0)) {
        Put(0);
    }
    WithoutPicture(const WithoutPicture&) = delete;
    WithoutPicture& operator=(const WithoutPicture&) = delete;
    ~WithoutPicture() { Put(picture); }

    bool HadOne() const { return picture != 0; }

private:
    void Put(LPARAM image) const {
        if (HadOne()) SendMessageW(control, BM_SETIMAGE, IMAGE_ICON, image);
    }

    HWND control;
    LRESULT picture;
};

// The contrasts of what a deed puts on a control.
std::vector<double> ContrastsOf(HWND control, const std::function<void()>& put,
                                const std::function<void()>& take) {
    take();
    const Picture without = FreshPictureOf(control);
    put();
    return ContrastsBetween(without, FreshPictureOf(control));
}

std::vector<double> ContrastsOfText(HWND control) {
    const std::wstring text = TextOf(control);
    // A blank keeps the sign of a choice where it is.
    return ContrastsOf(
        control, [&] { SetWindowTextW(control, text.c_str()); }, [&] { SetWindowTextW(control, L" "); });
}

std::vector<double> ContrastsOfEntry(HWND combo) {
    const LRESULT entry = SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Ink"));
    const auto select = [&](LRESULT index) {
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    };
    return ContrastsOf(
        combo, [&] { select(entry); }, [&] { select(-1); });
}

// Answers a list that asks for the text of its first cell with that text.
LRESULT CALLBACK AnswerFirstCell(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR text) {
    const LRESULT result = DefSubclassProc(dialog, message, wParam, lParam);
    if (message != WM_NOTIFY || reinterpret_cast<const NMHDR*>(lParam)->code != LVN_GETDISPINFOW)
        return result;
    const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW*>(lParam)->item;
    if ((item.mask & LVIF_TEXT) != 0 && item.iItem == 0 && item.iSubItem == 0)
        lstrcpynW(item.pszText, reinterpret_cast<const wchar_t*>(text), item.cchTextMax);
    return result;
}

void PutInFirstCell(HWND list, const wchar_t* text) {
    if ((StyleOf(list) & LVS_OWNERDATA) != 0)
        SetWindowSubclass(GetParent(list), &AnswerFirstCell, 0, reinterpret_cast<DWORD_PTR>(text));
    else
        ListView_SetItemText(list, 0, 0, const_cast<wchar_t*>(text));
}

std::vector<double> ContrastsOfRow(HWND list, UINT state) {
    ListView_SetItemState(list, 0, state, LVIS_SELECTED | LVIS_FOCUSED);
    return ContrastsOf(
        list, [&] { PutInFirstCell(list, L"Ink"); }, [&] { PutInFirstCell(list, L" "); });
}

std::vector<double> ContrastsOfHeading(HWND heading) {
    const auto put = [heading](const wchar_t* text) {
        // Without the sign of the order, which stands where the text ends.
        HDITEMW item{.mask = HDI_TEXT | HDI_FORMAT, .pszText = const_cast<wchar_t*>(text)};
        item.fmt = HDF_STRING | HDF_LEFT;
        SendMessageW(heading, HDM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    };
    return ContrastsOf(
        heading, [&] { put(L"Ink"); }, [&] { put(L" "); });
}

// What a heading says of the order stands beside its text.
std::vector<double> ContrastsOfOrder(HWND heading, int column) {
    HDITEMW item{.mask = HDI_FORMAT};
    SendMessageW(heading, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    const auto put = [&](int format) {
        item.fmt = format;
        SendMessageW(heading, HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    };
    const int withSign = item.fmt;
    return ContrastsOf(
        heading, [&] { put(withSign); }, [&] { put(HDF_STRING | HDF_LEFT); });
}

// The ground of a page without a control of it and with it.
Change ChangeOfGround(const InstallDialogEx& dialog, HWND control) {
    const HWND page = dialog.GetSafeHwnd();
    const Picture with = PartOf(FreshPictureOf(page), page, control);
    ShowWindow(control, SW_HIDE);
    const Picture without = PartOf(FreshPictureOf(page), page, control);
    ShowWindow(control, SW_SHOWNA);
    return {without, with};
}

std::vector<double> ContrastsWithGround(const InstallDialogEx& dialog, HWND control) {
    const Change change = ChangeOfGround(dialog, control);
    return ContrastsBetween(change.before, change.after);
}

// A sign may be shaded, and may have smooth edges; so much of it is to stand out that its form can be seen.
void ExpectSign(const std::vector<double>& contrasts, int control) {
    const auto seen = std::ranges::count_if(contrasts, [](double contrast) { return contrast >= signLimit; });
    EXPECT_GT(seen, 0) << "no sign in " << control;
    EXPECT_GE(seen * 8, static_cast<std::ptrdiff_t>(contrasts.size())) << "a faint sign in " << control;
}

using PlainCase = std::tuple<DialogCase, const char*>;

class PlainContrastTest : public DialogsWorld, public testing::WithParamInterface<PlainCase> {
protected:
    PlainContrastTest() : DialogsWorld(std::get<const char*>(GetParam())) {
        AddPictures(tree);
        Settings().SetString(Tag::INSTALL_STATUS, L"SUCCESS");
    }

    // Without the focus, whose frames and caret stand over the texts.
    std::unique_ptr<InstallDialogEx> Open() {
        auto dialog = DialogsWorld::Open(std::get<DialogCase>(GetParam()));
        SetFocus(nullptr);
        PumpMessages();
        return dialog;
    }

    void ExpectText(const std::vector<double>& contrasts, HWND control, const char* what,
                    double limit = textLimit) {
        const int id = GetDlgCtrlID(control);
        ASSERT_FALSE(contrasts.empty()) << "no text in " << id << ", " << what;
        EXPECT_GE(std::ranges::min(contrasts), limit) << "in " << id << ", " << what;
        lowest = std::min(lowest, std::ranges::min(contrasts));
    }

    void ExpectReadableList(HWND list) {
        ExpectText(ContrastsOfRow(list, 0), list, "a row");
        ExpectText(ContrastsOfRow(list, LVIS_SELECTED), list, "the selected row", SelectionLimit());
        SetFocus(list);
        ExpectText(ContrastsOfRow(list, LVIS_SELECTED | LVIS_FOCUSED), list,
                   "the selected row with the focus", SelectionLimit());
        SetFocus(nullptr);
        const HWND heading = ListView_GetHeader(list);
        if (IsWindowVisible(heading) != FALSE) ExpectText(ContrastsOfHeading(heading), list, "the heading");
    }

    void ExpectReadableButton(HWND button) {
        // A corner of the face beside frame and text.
        const bool isMain = FreshPictureOf(button).At(3, 3) == mainButtonFace;
        const double limit = isMain ? mainButtonLimit : textLimit;
        ExpectText(ContrastsOfText(button), button, "at rest", limit);
        SendMessageW(button, BM_SETSTATE, TRUE, 0);
        ExpectText(ContrastsOfText(button), button, "pressed", limit);
        SendMessageW(button, BM_SETSTATE, FALSE, 0);
        HoverOver(button);
        ExpectText(ContrastsOfText(button), button, "under the mouse");
        SendMessageW(button, WM_MOUSELEAVE, 0, 0);
    }

    static void HoverOver(HWND button) { SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(4, 4)); }

    void ExpectReadable(HWND control) {
        if (IsWindowEnabled(control) == FALSE || !ShowsText(control)) return;
        const SharpFont sharp(control);
        const WithoutPicture bare(control);
        const std::wstring kind = ClassOf(control);
        if (kind == WC_LISTVIEWW) {
            ExpectReadableList(control);
        } else if (kind == WC_COMBOBOXW) {
            ExpectText(ContrastsOfEntry(control), control, "the entry");
        } else if (IsFlatButton(control)) {
            ExpectReadableButton(control);
        } else {
            ExpectText(ContrastsOfText(control), control, "the text");
        }
    }

    // What a control's picture changes: of its own face, or of the page where it is all that is drawn.
    static Change ChangeByPicture(const InstallDialogEx& dialog, HWND control) {
        if (SendMessageW(control, BM_GETIMAGE, IMAGE_ICON, 0) == 0) return ChangeOfGround(dialog, control);
        const std::wstring text = TextOf(control);
        // The text would make room for the picture.
        SetWindowTextW(control, L"");
        const Picture with = FreshPictureOf(control);
        const WithoutPicture bare(control);
        const Picture without = FreshPictureOf(control);
        SetWindowTextW(control, text.c_str());
        return {without, with};
    }

    // A plate may stand out from the page without a sign on it, so that is looked at by itself.
    static void ExpectPicture(const Change& change, int control) {
        ExpectSign(ContrastsBetween(change.before, change.after), control);
        ExpectSign(ContrastsWithin(change.before, change.after), control);
    }

    static void ExpectSigns(const InstallDialogEx& dialog, HWND control) {
        const int id = GetDlgCtrlID(control);
        const LONG_PTR kind = ButtonKindOf(control);
        if (HasPictureForText(control) || id == IDC_DISCOVERY_REFRESH)
            ExpectPicture(ChangeByPicture(dialog, control), id);
        const bool isEnabledFlat = IsFlatButton(control) && IsWindowEnabled(control) != FALSE;
        const bool hasMark = kind == BS_AUTORADIOBUTTON || kind == BS_AUTOCHECKBOX;
        if (isEnabledFlat || hasMark) ExpectSign(ContrastsWithGround(dialog, control), id);
        if (id == IDC_DISCOVERY_LIST) {
            const HWND heading = ListView_GetHeader(control);
            for (int column = 0; column < Header_GetItemCount(heading); ++column)
                ExpectSign(ContrastsOfOrder(heading, column), id);
        }
    }

    double lowest = 21;
};

TEST_P(PlainContrastTest, HasTextsThatStandOut) {
    const auto dialog = Open();
    InEachView(*dialog, [&] { ForEachSeen(*dialog, [&](HWND control) { ExpectReadable(control); }); });
    RecordProperty("lowest", std::to_string(lowest));
}

TEST_P(PlainContrastTest, HasSignsThatStandOut) {
    const auto dialog = Open();
    InEachView(*dialog, [&] { ForEachSeen(*dialog, [&](HWND control) { ExpectSigns(*dialog, control); }); });
}

INSTANTIATE_TEST_SUITE_P(All, PlainContrastTest,
                         testing::Combine(testing::ValuesIn(EveryDialog()), testing::Values("en", "ar")),
                         [](const testing::TestParamInfo<PlainCase>& given) {
                             return std::get<DialogCase>(given.param).name + std::string("_") +
                                    std::get<const char*>(given.param);
                         });

}  // namespace
