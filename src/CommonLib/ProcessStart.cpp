#include "CommonLib/ProcessStart.h"

KernelHandle StartProcess(const std::wstring& program, std::wstring commandLine, DWORD flags) {
    STARTUPINFOW startupInfo{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION processInformation{};
    // The system may write into the command line, so it gets a copy.
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                       &startupInfo, &processInformation) == FALSE) {
        return {};
    }
    const KernelHandle thread(processInformation.hThread);
    return KernelHandle(processInformation.hProcess);
}
