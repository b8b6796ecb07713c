#include "install/FinishTexts.h"

#include "settings/InstallStatus.h"
#include "settings/TextKeys.h"

namespace {

bool IsGoodRun(const RunOutcome& outcome) {
    return outcome.installStatus != InstallStatus::CANCELED && outcome.installStatus != InstallStatus::FAILED;
}

TextId OutcomeKey(const RunOutcome& outcome) {
    if (outcome.installStatus == InstallStatus::CANCELED) return TextKey::INSTALL_CANCELED_TEXT;
    if (outcome.installStatus == InstallStatus::FAILED) return TextKey::INSTALLATION_FAILED_TEXT;
    if (outcome.usb && !outcome.amazonSupported) return TextKey::USB_FINAL_TEXT;
    if (!outcome.usb && (outcome.optionalInstall || outcome.installFromConfig)) {
        return TextKey::INSTALL_COMPLETE_TEXT;
    }
    return outcome.amazonSupported ? TextKey::AMAZON_INSTALL_COMPLETE_HEADER
                                   : TextKey::DRIVER_INSTALL_COMPLETE_TEXT;
}

}  // namespace

bool IsUsbFinish(const RunOutcome& outcome) {
    return IsGoodRun(outcome) && outcome.usb;
}

HeaderKeys FinishHeader(const RunOutcome& outcome) {
    return {.first = OutcomeKey(outcome),
            .second = outcome.dotNetFailed ? TextKey::REQUIRED_DEPENDENCY : TextId()};
}

// By design: shown for every package, also for those of the other kind than its key says.
TextId FinishSecondText(const RunOutcome& outcome) {
    if (!IsGoodRun(outcome)) return {};
    return outcome.usb ? TextKey::AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1
                       : TextKey::AMAZON_INSTALL_COMPLETE_TEXT1;
}

std::wstring_view FinishPicture(std::wstring_view installStatus, bool usbFinish) {
    if (installStatus == InstallStatus::CANCELED || installStatus == InstallStatus::FAILED ||
        installStatus == InstallStatus::NOT_SUPPORTED) {
        return L"installerror.png";
    }
    return usbFinish ? L"usbconnect.png" : L"installsuccess.png";
}

TextId StatusTextKey(PackageStatus status) {
    switch (status) {
        case PackageStatus::Done:
            return TextKey::COMPLETED_TEXT;
        case PackageStatus::Cancelled:
            return TextKey::CANCELED_TEXT;
        case PackageStatus::Updated:
            return TextKey::UPDATED_TEXT;
        case PackageStatus::NotSupported:
            return TextKey::NOT_SUPPORTED_TEXT;
        default:
            return TextKey::FAILED_TEXT;
    }
}

bool IsGoodStatus(PackageStatus status) {
    return status == PackageStatus::Done || status == PackageStatus::Updated;
}

std::wstring_view InstallStatusOf(PackageStatus status) {
    if (status == PackageStatus::Failed) return InstallStatus::FAILED;
    return status == PackageStatus::NotSupported ? InstallStatus::NOT_SUPPORTED : std::wstring_view();
}
