#include "CommonLib/Application.h"

#include "CommonLib/ProcessStart.h"
#include "CommonLib/Win32Exception.h"

void Application::launch() {
    process = StartProcess(program, commandLine, creationFlags | DETACHED_PROCESS);
    if (!process) throw Win32Exception(L"Application::launch()", GetLastError(), L"CommonLib/Application");
}
