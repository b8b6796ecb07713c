// High contrast: what follows the user's setting at once and what keeps to the one it was made under.

#include <algorithm>
#include <array>

#include "CommonLib/Files.h"
#include "framework/CImage.h"
#include "framework/Handles.h"
#include "framework/Resolution.h"
#include "pages/ManufacturerDlg.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ContrastTheme.h"
#include "tests/windows/world/FakeHighContrast.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/Picture.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/Sheet.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/BitmapFile.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/CQorLinkButton.h"
#include "wizard/KestruneDlg.h"

namespace {

constexpr COLORREF plainPicture = RGB(0, 0, 255);
constexpr COLORREF contrastPicture = RGB(255, 0, 255);
constexpr COLORREF black = RGB(0, 0, 0);
class HighContrastTest : public SettingsWorld {
protected:
    HighContrastTest() {
        tree.Add(L"Setup\\res\\images\\help.png", BitmapFile(plainPicture));
        tree.Add(L"Setup\\res\\images\\high_contrast_help.png", BitmapFile(contrastPicture));
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
    }

    // The colour of the picture on the page's help button.
    COLORREF HelpPicture(const ManufacturerDlg& page) {
        const LRESULT icon = SendMessageW(page.GetDlgItem(IDC_HELP_BUTTON), BM_GETIMAGE, IMAGE_ICON, 0);
        sheet.Clear();
        DrawIconEx(sheet.Context(), 0, 0, reinterpret_cast<HICON>(icon), 0, 0, 0, nullptr, DI_NORMAL);
        return sheet.At(4, 4);
    }

    void Erase(const CWnd& page) {
        page.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(sheet.Context()));
    }

    DRAWITEMSTRUCT ItemIn(UINT state) const {
        return {.CtlType = ODT_BUTTON, .itemState = state, .hDC = sheet.Context(), .rcItem = Sheet::area};
    }

    FakeHighContrast setting;
    TestApp app;
    CDialogEx window;
    Sheet sheet;
};

TEST_F(HighContrastTest, ChangesThePicturesAtTheNextPaint) {
    ManufacturerDlg page{context};
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    EXPECT_EQ(HelpPicture(page), plainPicture);
    setting.Switch(true);
    EXPECT_EQ(HelpPicture(page), plainPicture);
    Erase(page);
    EXPECT_EQ(HelpPicture(page), contrastPicture);
    setting.Switch(false);
    Erase(page);
    EXPECT_EQ(HelpPicture(page), plainPicture);
}

// A button that is given its picture asks for the ground under it, and would be given it again for ever.
TEST_F(HighContrastTest, ChangesThePicturesOnce) {
    ManufacturerDlg page{context};
    EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    setting.Switch(true);
    Erase(page);
    const HWND help = page.GetDlgItem(IDC_HELP_BUTTON);
    SendMessageW(help, BM_SETIMAGE, IMAGE_ICON, 0);
    Erase(page);
    EXPECT_EQ(SendMessageW(help, BM_GETIMAGE, IMAGE_ICON, 0), 0);
}

TEST_F(HighContrastTest, GivesTheMainWindowTheSystemsGround) {
    KestruneDlg main(controller, Texts());
    EXPECT_TRUE(main.Create(IDD_MAIN, nullptr));
    Erase(main);
    EXPECT_EQ(sheet.At(2, 2), Sheet::white);
    setting.Switch(true);
    Erase(main);
    EXPECT_EQ(sheet.At(2, 2), GetSysColor(COLOR_3DFACE));
}

struct FaceCase {
    const char* name;
    UINT state;
    int face;
    int frame;
};

void PrintTo(const FaceCase& face, std::ostream* stream) {
    *stream << face.name;
}

class HighContrastFaceTest : public HighContrastTest, public testing::WithParamInterface<FaceCase> {
protected:
    void Draw(CQorFlatButton& button) {
        SetWindowLongPtrW(window.GetDlgItem(IDC_TEST_BUTTON), GWL_STYLE, WS_CHILD | BS_FLAT);
        button.SubclassDlgItem(IDC_TEST_BUTTON, window);
        button.DrawItem(ItemIn(GetParam().state));
    }
};

TEST_P(HighContrastFaceTest, TakesTheSystemsColours) {
    CQorFlatButton button;
    setting.Switch(true);
    Draw(button);
    EXPECT_EQ(sheet.At(3, 3), GetSysColor(GetParam().face));
    EXPECT_EQ(sheet.At(0, 0), GetSysColor(GetParam().frame));
}

TEST_P(HighContrastFaceTest, GoesWithTheSetting) {
    setting.Switch(true);
    CQorFlatButton button;
    setting.Switch(false);
    Draw(button);
    EXPECT_NE(sheet.At(3, 3), GetSysColor(GetParam().face));
}

INSTANTIATE_TEST_SUITE_P(
    States, HighContrastFaceTest,
    testing::Values(FaceCase{"Normal", 0, COLOR_BTNFACE, COLOR_ACTIVEBORDER},
                    FaceCase{"Hot", ODS_HOTLIGHT, COLOR_BTNHIGHLIGHT, COLOR_ACTIVEBORDER},
                    FaceCase{"Focused", ODS_FOCUS, COLOR_BTNFACE, COLOR_ACTIVEBORDER},
                    FaceCase{"Pressed", ODS_SELECTED, COLOR_HIGHLIGHT, COLOR_ACTIVEBORDER},
                    FaceCase{"PressedUnderTheMouse", ODS_SELECTED | ODS_HOTLIGHT, COLOR_HIGHLIGHT,
                             COLOR_ACTIVEBORDER},
                    FaceCase{"Disabled", ODS_DISABLED, COLOR_BTNFACE, COLOR_INACTIVEBORDER}),
    [](const testing::TestParamInfo<FaceCase>& face) { return std::string(face.param.name); });

class HotButtonTest : public HighContrastTest, public testing::WithParamInterface<ContrastTheme> {
protected:
    std::vector<COLORREF> ColoursOnFace() const {
        std::vector<COLORREF> found;
        for (int x = 3; x < Sheet::area.right - 3; ++x) {
            for (int y = 3; y < Sheet::area.bottom - 3; ++y) found.push_back(sheet.At(x, y));
        }
        return found;
    }

    double HighestContrastOnFace() const {
        double highest = 1;
        for (const COLORREF colour : ColoursOnFace())
            highest = std::max(highest, ContrastOf(colour, sheet.At(3, 3)));
        return highest;
    }

    ContrastColours colours;
};

// The themes have the colour of the texts for the face under the mouse, as some of Windows' own have.
TEST_P(HotButtonTest, CanBeRead) {
    constexpr double enoughForText = 4.5;
    ContrastColours::Set(GetParam());
    setting.Switch(true);
    CQorFlatButton button;
    SetWindowLongPtrW(window.GetDlgItem(IDC_TEST_BUTTON), GWL_STYLE, WS_CHILD | BS_FLAT);
    button.SubclassDlgItem(IDC_TEST_BUTTON, window);
    button.SetWindowText(L"MMMM");
    button.DrawItem(ItemIn(ODS_HOTLIGHT));
    EXPECT_EQ(sheet.At(3, 3), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_GE(HighestContrastOnFace(), enoughForText);
    EXPECT_THAT(ColoursOnFace(), testing::Contains(GetSysColor(COLOR_BTNFACE)));
}

// Its two colours differ in their green alone.
constexpr ContrastTheme greenTheme{.name = "GreenOnGreen",
                                   .ground = RGB(0, 64, 0),
                                   .text = RGB(0, 255, 0),
                                   .greyText = RGB(0, 128, 0),
                                   .link = RGB(0, 255, 0),
                                   .selection = RGB(0, 255, 0),
                                   .selectedText = RGB(0, 64, 0)};

std::vector<ContrastTheme> ThemesAndAGreenOne() {
    std::vector<ContrastTheme> themes = EveryContrastTheme();
    themes.push_back(greenTheme);
    return themes;
}

INSTANTIATE_TEST_SUITE_P(Themes, HotButtonTest, testing::ValuesIn(ThemesAndAGreenOne()),
                         [](const testing::TestParamInfo<ContrastTheme>& theme) {
                             return std::string(theme.param.name);
                         });

TEST_F(HighContrastTest, GivesALinkTheSystemsGroundAtOnce) {
    CQorLinkButton link;
    link.SubclassDlgItem(IDC_TEST_BUTTON, window);
    link.DrawItem(ItemIn(0));
    EXPECT_EQ(sheet.At(50, 3), Sheet::white);
    setting.Switch(true);
    link.DrawItem(ItemIn(0));
    EXPECT_EQ(sheet.At(50, 3), GetSysColor(COLOR_BTNFACE));
}

TEST_F(HighContrastTest, HasASignForALinkWhosePictureIsMissing) {
    CQorLinkButton link;
    link.SubclassDlgItem(IDC_TEST_BUTTON, window);
    link.SetWindowText(L"A text that is far too long for the button");
    link.SetImagePath(L"C:\\no such picture.png");
    link.DrawItem(ItemIn(0));
    EXPECT_TRUE(sheet.HasInk(20, 40));
    EXPECT_FALSE(sheet.HasInk(2, 20) || sheet.HasInk(40, 58));
}

// Whether anything stands on the face of a flat button right of its icon.
class ButtonIconTest : public HighContrastTest, public testing::WithParamInterface<const wchar_t*> {
protected:
    static constexpr int iconWidth = 16;

    ButtonIconTest() {
        SetWindowLongPtrW(window.GetDlgItem(IDC_TEST_BUTTON), GWL_STYLE, WS_CHILD | BS_FLAT);
        button.SubclassDlgItem(IDC_TEST_BUTTON, window);
        ATL::CImage picture;
        EXPECT_TRUE(picture.Load(GetPicturePath(L"help.png"), plainResolution));
        icon = picture.ToIcon();
    }
    void PutIcon() { button.SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get())); }
    bool HasTextOnFace() const {
        const COLORREF face = sheet.At(Sheet::area.right - 3, 3);
        for (int x = iconWidth; x < Sheet::area.right - 3; ++x) {
            for (int y = 3; y < Sheet::area.bottom - 3; ++y) {
                if (sheet.At(x, y) != face) return true;
            }
        }
        return false;
    }

    // The two lines of the ring where it comes down on the right.
    std::array<COLORREF, 2> RingAt(LONG inset) const {
        const int line = Sheet::area.right - 1 - inset;
        return {sheet.At(line, Sheet::area.bottom / 2), sheet.At(line - 1, Sheet::area.bottom / 2)};
    }

    CQorFlatButton button;
    Icon icon;
};

TEST_P(ButtonIconTest, StandsInPlaceOfTheText) {
    button.SetWindowText(GetParam());
    button.DrawItem(ItemIn(0));
    EXPECT_EQ(HasTextOnFace(), *GetParam() != L'\0');
    PutIcon();
    for (const bool highContrast : {false, true}) {
        setting.Switch(highContrast);
        sheet.Clear();
        button.DrawItem(ItemIn(0));
        EXPECT_EQ(sheet.At(0, 0), plainPicture);
        EXPECT_EQ(sheet.At(4, 4), plainPicture);
        EXPECT_FALSE(HasTextOnFace());
    }
}

// A text has room around it, and a picture takes all of it.
TEST_P(ButtonIconTest, HasTheSignOfTheFocusAroundIt) {
    button.DrawItem(ItemIn(ODS_FOCUS));
    EXPECT_THAT(RingAt(5), testing::ElementsAre(black, Sheet::white));
    PutIcon();
    button.DrawItem(ItemIn(ODS_FOCUS));
    EXPECT_THAT(RingAt(1), testing::ElementsAre(black, Sheet::white));
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutText, ButtonIconTest, testing::Values(L"WWWW", L""));

std::wstring helpFile;

HWND WINAPI KeepHelpFile(HWND, const wchar_t* file, UINT, DWORD_PTR) {
    helpFile = file;
    return nullptr;
}

// A page whose viewer notes what it is asked for.
class HelpButtonTest : public HighContrastTest {
protected:
    HelpButtonTest() {
        helpFile.clear();
        EXPECT_TRUE(page.Create(IDD_MANUFACTURER, &window));
    }
    HWND Button() const { return page.GetDlgItem(IDC_HELP_BUTTON); }

    ManufacturerDlg page{context};

private:
    PatchedImport exports{"GetProcAddress", +[](HMODULE, LPCSTR) {
                              return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&KeepHelpFile));
                          }};
};

TEST_F(HelpButtonTest, AsksForTheHelpByItsFullPath) {
    page.SendMessage(WM_COMMAND, IDC_HELP_BUTTON, reinterpret_cast<LPARAM>(Button()));
    EXPECT_EQ(helpFile, GetSetupDirectory() + L"\\en\\install.chm");
}

TEST_F(HelpButtonTest, IsPressedByEnter) {
    window.ShowWindow(SW_SHOW);
    page.ShowWindow(SW_SHOW);
    MSG enter{.hwnd = Button(), .message = WM_KEYDOWN, .wParam = VK_RETURN};
    SetFocus(page.GetDlgItem(IDC_MANUFACTURER_LIST));
    EXPECT_TRUE(page.PreTranslateMessage(&enter));
    EXPECT_EQ(helpFile, L"");
    SetFocus(Button());
    EXPECT_TRUE(page.PreTranslateMessage(&enter));
    EXPECT_NE(helpFile, L"");
}

}  // namespace
