// A dialog made from a template resource.
#pragma once

#include "framework/CWnd.h"

class CDialogEx : public CWnd {
public:
    // Creates the modeless dialog from the program's template of that id, with its controls, and runs
    // OnInitDialog. The parent may be null. False if there is no such template or the system refuses.
    bool Create(UINT templateId, CWnd* parent);

    // Keyboard navigation of the dialog.
    bool PreTranslateMessage(MSG* message) override;

protected:
    // Runs once, when all controls exist and before the dialog is shown. False if it has set the focus
    // itself.
    virtual bool OnInitDialog() { return true; }

    LRESULT WindowProc(const WindowMessage& message) override;
};
