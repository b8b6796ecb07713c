// What the Finish page shows for the outcome of a run. Functions of their arguments, for any thread.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/PackageStatus.h"
#include "settings/TextKeys.h"

// What the page's texts and picture depend on.
struct RunOutcome {
    std::wstring installStatus;  // the tag INSTALL_STATUS
    bool dotNetFailed = false;
    bool usb = false;
    bool amazonSupported = false;
    bool optionalInstall = false;
    bool installFromConfig = false;
};

// The keys of the header. The second says that the framework is missing, and is empty where it is not.
struct HeaderKeys {
    TextId first;
    TextId second;
};
HeaderKeys FinishHeader(const RunOutcome& outcome);

// Whether the header is that of a finished run over USB.
bool IsUsbFinish(const RunOutcome& outcome);

// The key of the second text, empty where the page has none.
TextId FinishSecondText(const RunOutcome& outcome);

// The file name of the picture that shows the outcome.
std::wstring_view FinishPicture(std::wstring_view installStatus, bool usbFinish);

// The key of the text for a status, and whether its picture is the check mark. A number that is no status
// counts as failed.
TextId StatusTextKey(PackageStatus status);
bool IsGoodStatus(PackageStatus status);

// The value of INSTALL_STATUS that a line brings about; empty where it brings none.
std::wstring_view InstallStatusOf(PackageStatus status);
