#include "tools/Rollout/Questions.h"

#include <algorithm>
#include <array>

#include "resources/resource.h"

namespace rollout {
namespace {

// The system's ids of buttons.
constexpr int okButton = 1;
constexpr int cancelButton = 2;
constexpr int abortButton = 3;
constexpr int retryButton = 4;
constexpr int noButton = 7;
// A box with one button may give it the id of OK or of Cancel.
constexpr std::array careful = {noButton, abortButton, cancelButton, okButton};

bool Has(const std::vector<int>& buttons, int button) {
    return std::ranges::find(buttons, button) != buttons.end();
}

}  // namespace

QuestionKind KindOf(const Box& box, const BoxTexts& texts) {
    if (Has(box.buttons, IDC_FILES_IN_USE_RETRY)) return QuestionKind::FilesInUse;
    if (Has(box.buttons, IDC_CLOSABLE_FILES_DO_NOT_CLOSE)) return QuestionKind::ClosablePrograms;
    if (box.text.empty()) return QuestionKind::Unknown;
    if (box.text == texts.installerBusy) return QuestionKind::InstallerBusy;
    if (box.text == texts.noPermission) return QuestionKind::NoPermission;
    if (box.text == texts.diskFull) return QuestionKind::DiskFull;
    if (box.text == texts.otherCopy) return QuestionKind::OtherCopy;
    return box.text == texts.failure ? QuestionKind::Failure : QuestionKind::Unknown;
}

int AnswerTo(QuestionKind kind, const std::vector<int>& buttons, int askedBefore, QuestionPolicy policy) {
    if (kind == QuestionKind::FilesInUse && policy == QuestionPolicy::Answer &&
        askedBefore < triesForFilesInUse) {
        return IDC_FILES_IN_USE_RETRY;
    }
    // Cancelled, the question whether to close programs leaves them open.
    if (kind == QuestionKind::FilesInUse || kind == QuestionKind::ClosablePrograms) return cancelButton;
    const auto button = std::ranges::find_if(careful, [&](int candidate) { return Has(buttons, candidate); });
    if (button != careful.end()) return *button;
    return buttons.empty() ? 0 : buttons.front();
}

std::string_view NameOf(QuestionKind kind) {
    switch (kind) {
        case QuestionKind::FilesInUse:
            return "filesInUse";
        case QuestionKind::ClosablePrograms:
            return "closablePrograms";
        case QuestionKind::Failure:
            return "failure";
        case QuestionKind::InstallerBusy:
            return "installerBusy";
        case QuestionKind::NoPermission:
            return "noPermission";
        case QuestionKind::DiskFull:
            return "diskFull";
        case QuestionKind::OtherCopy:
            return "otherCopy";
        case QuestionKind::Unknown:
            break;
    }
    return "unknown";
}

std::string_view NameOfAnswer(int button) {
    switch (button) {
        case 0:
            return "none";
        case okButton:
            return "ok";
        case cancelButton:
            return "cancel";
        case abortButton:
            return "abort";
        case noButton:
            return "no";
        case retryButton:
        case IDC_FILES_IN_USE_RETRY:
            return "retry";
        default:
            return "other";
    }
}

}  // namespace rollout
