#include "standins/Brevanto/InstallRun.h"

#include <msi.h>
#include <msiquery.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

#include "standins/Brevanto/InstallLog.h"
#include "standins/Brevanto/InstallerMessages.h"
#include "standins/Brevanto/Package.h"

namespace brevanto {
namespace {

constexpr DWORD handledMessages = INSTALLLOGMODE_PROGRESS | INSTALLLOGMODE_ACTIONSTART |
                                  INSTALLLOGMODE_ACTIONDATA | INSTALLLOGMODE_FILESINUSE |
                                  INSTALLLOGMODE_RMFILESINUSE;

// Stands between the installer and the callback. There is one for the life of the library, so that a message
// that comes late still finds it.
class Monitor {
public:
    // False if a run is on already.
    bool Begin(InstallProgressCallback newCallback);
    // Waits for a message that is being answered; later ones do not reach the callback.
    void End();
    void Cancel() { cancelled = true; }

    void ReportStart();
    // Shows the end of the scale for a run that ended well.
    void ReportSuccess();
    int Answer(UINT messageType, MSIHANDLE record);

private:
    int AnswerFilesInUse(const wchar_t* kind, MSIHANDLE record);
    int Report(bool always);
    int Ask(const std::wstring& document);

    // The installer may send a message from another thread while one is being answered, and, where the
    // callback shows a dialog, from the same thread.
    std::recursive_mutex lock;
    InstallProgressCallback callback = nullptr;
    ProgressMeter meter;
    int reported = -1;
    bool running = false;
    std::atomic<bool> cancelled = false;
};

std::vector<int> NumberFields(MSIHANDLE record) {
    std::vector<int> numbers;
    for (UINT field = 1; field <= MsiRecordGetFieldCount(record); ++field) {
        const int number = MsiRecordGetInteger(record, field);
        numbers.push_back(number == static_cast<int>(MSI_NULL_INTEGER) ? 0 : number);
    }
    return numbers;
}

bool Monitor::Begin(InstallProgressCallback newCallback) {
    const std::lock_guard guard(lock);
    if (running) return false;
    running = true;
    callback = newCallback;
    meter = {};
    reported = -1;
    cancelled = false;
    return true;
}

void Monitor::ReportStart() {
    const std::lock_guard guard(lock);
    Report(true);
}

void Monitor::End() {
    const std::lock_guard guard(lock);
    running = false;
    callback = nullptr;
}

void Monitor::ReportSuccess() {
    const std::lock_guard guard(lock);
    meter.Complete();
    Report(false);
}

int Monitor::Answer(UINT messageType, MSIHANDLE record) {
    const std::lock_guard guard(lock);
    if (!running) return 0;
    switch (messageType & 0xFF000000U) {
        case INSTALLMESSAGE_FILESINUSE:
            return AnswerFilesInUse(L"FILE_IN_USE", record);
        case INSTALLMESSAGE_RMFILESINUSE:
            return AnswerFilesInUse(L"RM_FILE_IN_USE", record);
        case INSTALLMESSAGE_PROGRESS:
            ApplyProgress(NumberFields(record), meter);
            return Report(false);
        case INSTALLMESSAGE_ACTIONDATA:
            meter.AddActionData();
            return Report(false);
        // The callback may hold the installer while it asks its user something, so each action gives it
        // occasion to.
        case INSTALLMESSAGE_ACTIONSTART:
            return Report(true);
        default:
            return 0;
    }
}

int Monitor::AnswerFilesInUse(const wchar_t* kind, MSIHANDLE record) {
    std::vector<std::wstring> fields;
    for (UINT field = 1; field <= MsiRecordGetFieldCount(record); ++field) {
        fields.push_back(RecordText(record, field));
    }
    return Ask(FilesInUseDocument(kind, fields));
}

int Monitor::Report(bool always) {
    if (!always && meter.Percent() == reported) return cancelled ? IDCANCEL : IDOK;
    reported = meter.Percent();
    return Ask(PercentDocument(reported));
}

int Monitor::Ask(const std::wstring& document) {
    const int answer = callback != nullptr ? callback(document.c_str()) : 0;
    return cancelled ? IDCANCEL : answer;
}

Monitor& TheMonitor() {
    static Monitor monitor;
    return monitor;
}

INT CALLBACK OnInstallerMessage(LPVOID, UINT messageType, MSIHANDLE record) {
    try {
        return TheMonitor().Answer(messageType, record);
    } catch (...) {
        return IDCANCEL;
    }
}

// Takes the installer's messages for as long as it lives.
class MessageScope {
public:
    MessageScope() : previousLevel(MsiSetInternalUI(INSTALLUILEVEL_NONE, nullptr)) {
        MsiSetExternalUIRecord(OnInstallerMessage, handledMessages, nullptr, nullptr);
    }
    ~MessageScope() {
        MsiSetExternalUIRecord(nullptr, 0, nullptr, nullptr);
        MsiSetInternalUI(previousLevel, nullptr);
        TheMonitor().End();
    }
    MessageScope(const MessageScope&) = delete;
    MessageScope& operator=(const MessageScope&) = delete;

private:
    INSTALLUILEVEL previousLevel;
};

bool IsSuccess(UINT code) {
    return code == ERROR_SUCCESS || code == ERROR_SUCCESS_REBOOT_INITIATED ||
           code == ERROR_SUCCESS_REBOOT_REQUIRED;
}

}  // namespace

UINT RunInstaller(InstallProgressCallback callback, const std::function<UINT()>& operation) {
    if (!TheMonitor().Begin(callback)) return ERROR_INSTALL_ALREADY_RUNNING;
    const MessageScope messages;
    const InstallLogScope log;
    TheMonitor().ReportStart();
    const UINT code = operation();
    if (IsSuccess(code)) TheMonitor().ReportSuccess();
    return code;
}

void CancelRun() {
    TheMonitor().Cancel();
}

}  // namespace brevanto
