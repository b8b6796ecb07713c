// The one top-level window. Pages are its children, shown one at a time in one rectangle.
#pragma once

#include "framework/CDialogEx.h"
#include "framework/Handles.h"

class KestruneDlg : public CDialogEx {
public:
    static constexpr UINT templateId = 102;

protected:
    bool OnInitDialog() override;
    void PreSubclassWindow() override;
    const MessageMap& GetMessageMap() const override;
    // The close box is the Cancel button of the page, and dead while that is greyed out.
    virtual LRESULT OnSysCommand(WPARAM command, LPARAM position);

private:
    void ShowLogo();

    Bitmap logo;
};
