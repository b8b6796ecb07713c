// Custom actions of the test packages.
#include <windows.h>

#include <msi.h>
#include <msiquery.h>

namespace {

int Send(MSIHANDLE install, INSTALLMESSAGE message, UINT fields) {
    const MSIHANDLE record = MsiCreateRecord(fields);
    MsiRecordSetStringW(record, 1, L"Inkwell");
    MsiRecordSetStringW(record, 2, L"1234");
    if (fields > 2) {
        MsiRecordSetStringW(record, 3, L"Scan Desk");
        MsiRecordSetStringW(record, 4, L"5678");
    }
    const int answer = MsiProcessMessage(install, message, record);
    MsiCloseHandle(record);
    return answer;
}

}  // namespace

extern "C" {

__declspec(dllexport) UINT __stdcall Fail(MSIHANDLE) {
    return ERROR_INSTALL_FAILURE;
}

// Long enough for a test to cancel it on a busy machine, and not for ever.
__declspec(dllexport) UINT __stdcall Tick(MSIHANDLE install) {
    for (int tick = 0; tick < 600; ++tick) {
        if (Send(install, INSTALLMESSAGE_ACTIONDATA, 2) == IDCANCEL) return ERROR_INSTALL_USEREXIT;
        Sleep(50);
    }
    return ERROR_SUCCESS;
}

__declspec(dllexport) UINT __stdcall AskFilesInUse(MSIHANDLE install) {
    const int answer = Send(install, INSTALLMESSAGE_FILESINUSE, 4);
    return answer == IDRETRY ? ERROR_SUCCESS : ERROR_INSTALL_FAILURE;
}
}
