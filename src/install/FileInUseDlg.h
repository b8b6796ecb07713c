// Asks what to do about files that programs hold open.
#pragma once

#include <string>

#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

// DoModal returns IDRETRY, IDIGNORE or IDCANCEL. Runs on the library's thread.
class FileInUseDlg : public InstallDialogEx {
public:
    explicit FileInUseDlg(const PageContext& context);

    // The programs to name; kept from question to question.
    void SetApplicationName(const std::wstring& name) { applicationName = name; }

private:
    bool OnInitDialog() override;
    const MessageMap& GetMessageMap() const override;

    void OnRetry();
    void OnIgnore();

    std::wstring applicationName;
    CQorFlatButton cancelButton;
    CQorFlatButton ignoreButton;
    CQorFlatButton retryButton;
};
