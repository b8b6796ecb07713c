// The page with the licence text, which lets the user go on when the text has been scrolled to its end.
#pragma once

#include <string>

#include "framework/Handles.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

class EULADlg : public InstallDialogEx {
public:
    explicit EULADlg(const PageContext& context);
    EULADlg(const EULADlg&) = delete;
    EULADlg& operator=(const EULADlg&) = delete;
    ~EULADlg() override;

private:
    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap& GetMessageMap() const override;

    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnMessageFilter(NMHDR& header);
    LRESULT OnScrollDone(WPARAM, LPARAM);
    void OnScroll();
    void ShowLicence();
    std::wstring GetEULAPath() const;
    std::wstring ReadEULAFile(const std::wstring& path) const;

    // The rich edit's classes; loaded before the template that names them.
    Library richEdit;
    CQorFlatButton agreeButton;
    CQorFlatButton disagreeButton;
};
