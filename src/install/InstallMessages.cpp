#include "install/InstallMessages.h"

#include <windows.h>

#include <memory>
#include <string>
#include <utility>

#include "CommonLib/TextUtilities.h"
#include "framework/CWinApp.h"
#include "install/FileInUseDlg.h"
#include "install/InstallDecision.h"
#include "install/ProgressDialog.h"
#include "install/RMFileInUseDlg.h"
#include "settings/InstallSettings.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "wizard/LocalizedMessage.h"

namespace {

constexpr DWORD promptPollInMilliseconds = 50;

void TellProgress(const std::wstring& document) {
    auto update = std::make_unique<ProgressUpdate>();
    std::wstring percent;
    if (TagDocument::FindValue(document, Tag::PERCENT, percent)) update->percent = LeadingInteger(percent);
    const CWnd* const mainWindow = AfxGetMainWnd();
    if (mainWindow != nullptr && mainWindow->GetSafeHwnd() != nullptr)
        ProgressDialog::Post(std::move(update));
}

bool IsQuestion(const std::wstring& document, std::wstring_view tag) {
    return TagDocument::ValueOf(document, tag) == L"true";
}

// The dialog is made for the first question of its kind and then kept, with the names that it showed last.
template <class Dialog>
std::int32_t Ask(const std::wstring& document) {
    static Dialog dialog;
    std::wstring names;
    if (TagDocument::FindValue(document, Tag::APPLICATION_NAME, names)) dialog.SetApplicationName(names);
    return static_cast<std::int32_t>(dialog.DoModal());
}

}  // namespace

std::int32_t OnInstallMessage(const wchar_t* message) {
    try {
        // The library stands still as long as the user is asked whether to cancel.
        while (ProgressDialog::IsCancelPromptOpen()) Sleep(promptPollInMilliseconds);
        const std::wstring document = message;
        if (IsQuestion(document, Tag::RM_FILE_IN_USE)) return Ask<RMFileInUseDlg>(document);
        if (IsQuestion(document, Tag::FILE_IN_USE)) return Ask<FileInUseDlg>(document);
        TellProgress(document);
    } catch (...) {
        // The library's own frames lie below this one.
        CWinApp::ReportUnhandledException(L"install message");
    }
    return IDOK;
}

bool ShowErrorDialog(std::uint32_t code) {
    if (InstallSettings::GetInstance().GetBool(Tag::OPTIONAL_INSTALL)) return false;
    const ErrorDialogTexts texts = ErrorDialogFor(code);
    if (const CWnd* const mainWindow = AfxGetMainWnd()) {
        ShowLocalizedMessage(mainWindow->GetSafeHwnd(), texts.textKey, texts.titleKey);
    }
    return texts.stopsRun;
}
