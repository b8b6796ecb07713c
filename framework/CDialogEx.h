// A dialog made from a template resource, modeless or modal.
#pragma once

#include "framework/CWnd.h"

class CDialogEx : public CWnd {
public:
    CDialogEx() = default;
    // For DoModal. The parent may be null; the main window then takes its place.
    explicit CDialogEx(UINT dialogTemplate, CWnd* parentWindow = nullptr)
        : templateId(dialogTemplate), parent(parentWindow) {}

    // Creates the modeless dialog from the program's template of that id, with its controls, and runs
    // OnInitDialog. The parent may be null. False if there is no such template or the system refuses.
    [[nodiscard]] bool Create(UINT dialogTemplate, CWnd* parentWindow);
    // Shows the dialog of the constructor's template, keeps its parent disabled and runs a message loop until
    // EndDialog. May run on any thread. Returns EndDialog's result, -1 if the dialog cannot be created.
    int DoModal();
    // Ends DoModal; on a modeless dialog nothing happens.
    void EndDialog(int result);

    UINT TemplateId() const { return templateId; }

    // Takes the text size of the user's settings by now, with all controls. A window of its own keeps its
    // middle and comes back onto the screen; the place of a part of another is that one's.
    void TakeTextSize();

    // Keyboard navigation of the dialog.
    bool PreTranslateMessage(MSG* message) override;

protected:
    // Runs once, when all controls exist and before the dialog is shown. False if it has set the focus
    // itself.
    virtual bool OnInitDialog() { return true; }
    // The extended style of the new window, for the one that the template gives. It settles here, before the
    // window exists: a layout from right to left must be known when the controls are placed.
    virtual DWORD ExtendedStyle(DWORD ofTemplate) const { return ofTemplate; }
    // Runs when the controls stand where they belong at a new text size, for the rest: fonts and pictures.
    // The font is that of the dialog's template, and goes afterwards.
    virtual void OnTextSize(HFONT /*letters*/) {}
    // A click on the buttons with the ids 1 and 2, and what the system makes of the close box and Escape.
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    const MessageMap& GetMessageMap() const override { return Events(); }
    // The map that the maps of derived classes build on.
    static const MessageMap& Events();

    LRESULT WindowProc(const WindowMessage& message) override;

    // Whether the dialog is a part of another window, as a page is.
    bool IsChildWindow() const;

private:
    LRESULT OnDrawItem(WPARAM, LPARAM item);
    // Hands what the dialog has no handler for back to the control that it comes from.
    LRESULT OnNotify(WPARAM id, LPARAM record);
    LRESULT OnSystemColours(WPARAM, LPARAM);
    LRESULT OnSettingChange(WPARAM setting, LPARAM);
    void RedrawAll();
    void TakeSize(SIZE size);
    void RunModalLoop();

    UINT templateId = 0;
    // What the window was made from, and with letters of how many points.
    UINT madeFrom = 0;
    int letterPoints = 0;
    CWnd* parent = nullptr;
    bool modal = false;
    int modalResult = 0;
};
