#include "CommonLib/Application.h"

#include "CommonLib/Win32Exception.h"

void Application::launch() {
    STARTUPINFOW startupInfo{.cb = sizeof(STARTUPINFOW)};
    PROCESS_INFORMATION processInformation{};
    // The system may write into the command line, so it gets a copy.
    std::wstring line = commandLine;
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, creationFlags | DETACHED_PROCESS,
                       nullptr, nullptr, &startupInfo, &processInformation) == FALSE) {
        throw Win32Exception(L"Application::launch()", GetLastError(), L"CommonLib/Application");
    }
    process.reset(processInformation.hProcess);
    thread.reset(processInformation.hThread);
}
