// The one top-level window. Pages are its children, shown one at a time in one rectangle.
#pragma once

#include "framework/CDialogEx.h"
#include "framework/Handles.h"
#include "settings/Localizer.h"

class Controller;

class KestruneDlg : public CDialogEx {
public:
    // Both outlive the window.
    KestruneDlg(Controller& walk, const Localizer& texts) : controller(walk), localizer(texts) {}

protected:
    bool OnInitDialog() override;
    DWORD ExtendedStyle(DWORD ofTemplate) const override;
    void OnTextSize(HFONT letters) override;
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
    LRESULT OnEndSession(WPARAM ends, LPARAM);
    LRESULT OnHelp(WPARAM, LPARAM);
    LRESULT OnActivate(WPARAM state, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnFinishForWorker(WPARAM reboot, LPARAM);
    void HandFocusToPage();
    void SetPlaceOfPages();
    void ShowLogo();
    void ScaleLogo();
    void KeepLogoBeginningInView(HWND place) const;

    Controller& controller;
    const Localizer& localizer;

    // The system's copy of the program's icon.
    HICON icon = nullptr;

    Bitmap logo;
};
