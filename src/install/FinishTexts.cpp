#include "install/FinishTexts.h"

#include "CommonLib/TextUtilities.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

constexpr int mostLines = 100;

bool IsGoodRun(const RunOutcome& outcome) {
    return outcome.installStatus != L"CANCELED" && outcome.installStatus != L"FAILED";
}

}  // namespace

bool IsUsbFinish(const RunOutcome& outcome) {
    return IsGoodRun(outcome) && outcome.usb;
}

HeaderKeys FinishHeader(const RunOutcome& outcome) {
    if (outcome.installStatus == L"CANCELED") {
        return {.first = TextKey::INSTALL_CANCELED_TEXT,
                .second = outcome.dotNetFailed ? TextKey::REQUIRED_DEPENDENCY : std::wstring_view()};
    }
    if (outcome.installStatus == L"FAILED") return {.first = TextKey::INSTALLATION_FAILED_TEXT};
    if (outcome.usb) {
        return {.first = outcome.amazonSupported ? TextKey::AMAZON_INSTALL_COMPLETE_HEADER
                                                 : TextKey::USB_FINAL_TEXT};
    }
    if (outcome.optionalInstall || outcome.installFromConfig)
        return {.first = TextKey::INSTALL_COMPLETE_TEXT};
    return {.first = outcome.amazonSupported ? TextKey::AMAZON_INSTALL_COMPLETE_HEADER
                                             : TextKey::DRIVER_INSTALL_COMPLETE_TEXT};
}

// Shown for every package, also for those of the other kind than its key says; this is meant.
std::wstring_view FinishSecondText(const RunOutcome& outcome) {
    if (!IsGoodRun(outcome)) return {};
    return outcome.usb ? TextKey::AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1
                       : TextKey::AMAZON_INSTALL_COMPLETE_TEXT1;
}

std::wstring_view FinishPicture(std::wstring_view installStatus, bool usbFinish) {
    if (installStatus == L"CANCELED" || installStatus == L"FAILED" || installStatus == L"NOT_SUPPORTED") {
        return L"installerror.png";
    }
    return usbFinish ? L"usbconnect.png" : L"installsuccess.png";
}

std::vector<StatusLine> ReadStatusDocument(std::wstring_view document) {
    std::vector<StatusLine> lines;
    std::wstring element;
    for (int number = 0; number < mostLines; ++number) {
        if (!TagDocument::FindValue(document, L"App " + std::to_wstring(number), element)) break;
        lines.push_back({.name = TagDocument::ValueOf(element, L"NAME"),
                         .code = LeadingInteger(TagDocument::ValueOf(element, L"STATUS"))});
    }
    return lines;
}

std::wstring_view StatusTextKey(std::int32_t code) {
    switch (code) {
        case 0:
            return TextKey::COMPLETED_TEXT;
        case 2:
            return TextKey::CANCELED_TEXT;
        case 3:
            return TextKey::UPDATED_TEXT;
        case 4:
            return TextKey::NOT_SUPPORTED_TEXT;
        default:
            return TextKey::FAILED_TEXT;
    }
}

bool IsGoodStatus(std::int32_t code) {
    return code == 0 || code == 3;
}

std::wstring_view InstallStatusOf(std::int32_t code) {
    if (code == 1) return L"FAILED";
    return code == 4 ? std::wstring_view(L"NOT_SUPPORTED") : std::wstring_view();
}
