#include "CommonLib/ProcessStart.h"

#include <shellapi.h>

KernelHandle StartProcess(const wchar_t* program, std::wstring commandLine, DWORD flags) {
    STARTUPINFOW startupInfo{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION processInformation{};
    // The system may write into the command line, so it gets a copy.
    if (CreateProcessW(program, commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                       &startupInfo, &processInformation) == FALSE) {
        return {};
    }
    const KernelHandle thread(processInformation.hThread);
    return KernelHandle(processInformation.hProcess);
}

bool RunElevated(const wchar_t* program, const std::wstring& parameters) {
    // What is below is an error code.
    constexpr INT_PTR firstSuccess = 32;
    const HINSTANCE result = ShellExecuteW(nullptr, L"runas", program, parameters.c_str(), nullptr, SW_HIDE);
    return reinterpret_cast<INT_PTR>(result) >= firstSuccess;
}
