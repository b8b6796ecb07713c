#include "install/InstallMessages.h"

#include <windows.h>

#include <atomic>
#include <optional>
#include <string>

#include "CommonLib/TextUtilities.h"
#include "framework/CWinApp.h"
#include "install/InstallDecision.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

constexpr DWORD promptPollInMilliseconds = 50;

std::atomic<IInstallProgress*> progress = nullptr;

std::optional<std::wstring> ValueIn(const std::wstring& document, std::wstring_view tag) {
    std::wstring value;
    return TagDocument::FindValue(document, tag, value) ? std::optional(value) : std::nullopt;
}

bool IsQuestion(const std::wstring& document, std::wstring_view tag) {
    return TagDocument::ValueOf(document, tag) == L"true";
}

std::int32_t Answer(IInstallProgress& page, const std::wstring& document) {
    const std::optional<std::wstring> programs = ValueIn(document, Tag::APPLICATION_NAME);
    if (IsQuestion(document, Tag::RM_FILE_IN_USE)) return page.AskToClosePrograms(programs);
    if (IsQuestion(document, Tag::FILE_IN_USE)) return page.AskAboutFilesInUse(programs);
    page.Tell(LeadingInteger(ValueIn(document, Tag::PERCENT).value_or(L"")));
    return IDOK;
}

}  // namespace

void DeliverMessagesTo(IInstallProgress* receiver) {
    progress = receiver;
}

std::int32_t OnInstallMessage(const wchar_t* message) {
    IInstallProgress* const page = progress;
    if (page == nullptr) return IDOK;
    try {
        // The library stands still as long as the user is asked whether to cancel.
        while (page->IsCancelPromptOpen()) Sleep(promptPollInMilliseconds);
        return Answer(*page, message);
    } catch (...) {
        // The library's own frames lie below this one.
        CWinApp::ReportUnhandledException(L"install message");
    }
    return IDOK;
}

bool ShowErrorDialog(IInstallProgress* page, const InstallSettings& settings, std::uint32_t code) {
    if (settings.GetBool(Tag::OPTIONAL_INSTALL)) return false;
    const ErrorDialogTexts texts = ErrorDialogFor(code);
    if (page != nullptr) page->ShowError(texts.textKey, texts.titleKey);
    return texts.stopsRun;
}
