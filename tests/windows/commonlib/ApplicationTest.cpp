#include <gtest/gtest.h>

#include <filesystem>

#include "CommonLib/Application.h"
#include "CommonLib/Win32Exception.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/wizard/LostProcess.h"
#include "tests/wizard/Waiting.h"

namespace {

void Launch(Application& application) {
    const bool launched = StartUnlessLost([&] {
        try {
            application.launch();
            return true;
        } catch (const Win32Exception& exception) {
            SetLastError(static_cast<DWORD>(exception.getCode()));
            return false;
        }
    });
    ASSERT_TRUE(launched) << "error " << GetLastError();
}

TEST(ApplicationTest, StartsTheCommandLineAndDoesNotHoldTheProcess) {
    const ScratchFolder folder;
    {
        Application application;
        application.program = CompanionPath();
        application.commandLine =
            L"\"" + CompanionPath() + L"\" leave-trace \"" + (folder / L"trace") + L"\"";
        Launch(application);
    }
    EXPECT_TRUE(WaitUntil([&] { return ReadBytes(folder / L"trace") == "started"; }));
}

TEST(ApplicationTest, LeavesTheCommandLineAsItWas) {
    const ScratchFolder folder;
    Application application;
    const std::wstring line = L"\"" + CompanionPath() + L"\" end-with 0";
    application.program = CompanionPath();
    application.commandLine = line;
    Launch(application);
    EXPECT_EQ(application.commandLine, line);
}

TEST(ApplicationTest, TellsOfAProgramThatIsNotThere) {
    Application application;
    application.program = L"C:\\no-such-folder\\no-such-program.exe";
    try {
        application.launch();
        FAIL() << "no exception";
    } catch (const Win32Exception& exception) {
        EXPECT_EQ(exception.getMessage(), L"Application::launch()");
        EXPECT_TRUE(exception.getCode() == ERROR_PATH_NOT_FOUND ||
                    exception.getCode() == ERROR_FILE_NOT_FOUND);
    }
}

}  // namespace
