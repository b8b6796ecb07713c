// The one top-level window. Pages are its children, shown one at a time in one rectangle.
#pragma once

#include "framework/CDialogEx.h"
#include "framework/Handles.h"

class KestruneDlg : public CDialogEx {
public:
    static constexpr UINT templateId = 102;

protected:
    bool OnInitDialog() override;
    DWORD ExtendedStyle(DWORD ofTemplate) const override;
    const MessageMap& GetMessageMap() const override;
    // The close box is the Cancel button of the page, and dead while that is greyed out.
    virtual LRESULT OnSysCommand(WPARAM command, LPARAM position);

    // The close box reaches the page, so nothing ends the window here.
    void OnCancel() override {}

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnQueryDragIcon(WPARAM, LPARAM);
    LRESULT OnStaticColour(WPARAM context, LPARAM control);
    LRESULT OnEraseBackground(WPARAM context, LPARAM);
    LRESULT OnHelp(WPARAM, LPARAM);
    void ShowLogo();
    void KeepLogoBeginningInView(HWND place) const;

    // The system's copy of the program's icon.
    HICON icon = nullptr;

    Bitmap logo;
};
