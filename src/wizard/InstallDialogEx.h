// The base of all pages: fonts, help, localised texts, keyboard and the right-to-left layout.
#pragma once

#include <array>
#include <atomic>
#include <string>
#include <string_view>
#include <vector>

#include "framework/CDialogEx.h"
#include "framework/CToolTipCtrl.h"
#include "framework/Handles.h"
#include "resources/resource.h"
#include "settings/TextKeys.h"
#include "wizard/ControlState.h"
#include "wizard/PageContext.h"
#include "wizard/PictureIcon.h"

// The first message that a page may send itself; the one before is that of all pages.
inline constexpr UINT firstPageMessage = WM_APP + 1;

// A page is created once, hidden, and lives until the process ends; a sub-dialog is shown by DoModal. The
// windows belong to the thread that made them, and so do the fonts and icons, which no two dialogs share: a
// dialog that a library's thread asks with has its own.
class InstallDialogEx : public CDialogEx {
public:
    // The topic is the page's context number in the help file.
    InstallDialogEx(const PageContext& context, UINT dialogTemplate, DWORD topic = HIDD_DEFAULT,
                    CWnd* parentWindow = nullptr);

    // Creates the window as a child of the main window, at that place of it. Returns false if that fails.
    [[nodiscard]] bool CreateAsPage(const RECT& place);

    // Shows the page with the focus where the user is to begin, and hides it. A page has its first text,
    // which is its heading, as its name: a screen reader says it when the focus comes to the page. A hidden
    // page is disabled: it takes no key, and nothing gives it the focus. Any thread.
    void Appear();
    void Disappear();
    // Moves the page to another place of the main window, and has it take the text size by now.
    void PlaceAnew(const RECT& place);
    // Gives the focus to the page, unless it has it. The window's thread.
    void TakeFocus();

    // Takes the message that the Controller hands on before the page is shown. Pages that need it keep it.
    virtual std::uint32_t ReceiveMessage(std::wstring message);

    bool PreTranslateMessage(MSG* message) override;

    // The walk passes over this page. The install thread reads it too.
    std::atomic<bool> hidden = false;
    // The name by which the Controller finds the page; empty for most.
    std::wstring dialogName;

protected:
    bool OnInitDialog() override;
    // A page's Cancel is the wizard's; a sub-dialog ends.
    void OnCancel() override;
    DWORD ExtendedStyle(DWORD ofTemplate) const override;
    void OnTextSize(HFONT letters) override;
    const MessageMap& GetMessageMap() const override { return Events(); }
    static const MessageMap& Events();
    // The control that gets the focus when the page appears and has not taken it itself: the first one that
    // takes input and does nothing on Enter, or else a text.
    virtual HWND FirstFocus() const;

    virtual void SetLocalizedText(HWND window, TextId key);
    void SetLocalizedText(int controlId, TextId key) { SetLocalizedText(GetDlgItem(controlId), key); }
    // Inserts the text of the key into a combo box at that index.
    virtual void InsertLocalizedString(HWND comboBox, int index, TextId key);
    virtual std::wstring GetLocalizedText(TextId key) const;
    // The same without the mark of an access key.
    std::wstring GetPlainText(TextId key) const;
    // Redraws the part of this page under a control, for controls that let it show through.
    virtual void RedrawControl(HWND control);
    // The background of a control, for WM_CTLCOLORSTATIC.
    virtual LRESULT OnCtlColor(HDC context, HWND control);

    void SetControlFont(int controlId, const Font& font);
    // Text and font of a control at once.
    void SetUpControl(int controlId, TextId key, const Font& font);
    // A control that has the focus and is hidden or disabled hands it on.
    void ShowControl(int controlId, bool shown);
    void EnableControl(int controlId, bool enabled);
    // Puts the controls as they are to stand, and leaves alone what stands so already.
    void Apply(const std::vector<ControlState>& states);
    // Leaves the group of radio buttons, given by its first and last, within reach of the Tab key where none
    // of it is checked.
    void KeepTabStop(int firstRadio, int lastRadio);
    // The first characters of what stands in the field, that many at most.
    std::wstring TextOf(int controlId, std::size_t longest) const;
    // Selects the field's whole text and scrolls to it.
    void SelectAll(int controlId);
    void FocusControl(int controlId) { ::SetFocus(GetDlgItem(controlId)); }
    // Fills the page's ground: white, or the system's colour with high contrast on.
    virtual void PaintGround(HDC context);

    // For the sub-dialogs of a page.
    PageContext Context() const { return {controller, settings, localizer}; }

    Controller& controller;
    InstallSettings& settings;
    const Localizer& localizer;
    Font fontBody;
    Font fontLarge;
    Font fontHeading;
    Font fontMedium;
    Font fontButton;
    Font fontSmall;
    Font fontUnderlined;
    PictureIcon helpIcon{L"help.png"};
    PictureIcon helpIconHighContrast{L"high_contrast_help.png"};
    PictureIcon refreshIcon{L"refresh.png"};
    PictureIcon refreshIconHighContrast{L"high_contrast_refresh.png"};
    // Full path of the help picture, for link buttons.
    std::wstring helpImagePath;
    // Created by those that have tips.
    CToolTipCtrl toolTips;

private:
    LRESULT OnEraseBackground(WPARAM context, LPARAM);
    LRESULT OnControlColour(WPARAM context, LPARAM control);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnUpdateUiState(WPARAM, LPARAM);
    LRESULT OnHelp(WPARAM, LPARAM);
    LRESULT OnTakeFocus(WPARAM, LPARAM);
    void HandFocusOn(HWND from);
    HWND FirstText() const;
    void TakeName();
    void ShowHelp();
    void MakeFonts();
    std::array<Font*, 7> Fonts();
    std::array<PictureIcon*, 4> Icons();
    void RenewFonts(HFONT letters);
    void RenewIcons();
    Font MakeFont(int points, int weight, bool underlined, int resolution) const;
    void PutContrastIcons(PictureIcon& help, PictureIcon& refresh);
    bool OnEscape();
    bool OnEnter();

    DWORD helpTopic;
    bool highContrast = false;
    std::wstring helpFile;
    // Of the controls that have none of the page's own, once there was a new text size.
    Font templateFont;
    FontResource fontResource;
};
