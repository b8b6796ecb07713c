// The other process of a test: does the one thing that its first argument names.

#include <windows.h>

#include <cstdio>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "CommonLib/Exception.h"
#include "CommonLib/InterProcessLock.h"
#include "CommonLib/Logger.h"
#include "CommonLib/Mutex.h"
#include "CommonLib/SystemVersion.h"
#include "CommonLib/Utf8.h"
#include "framework/CWinApp.h"
#include "settings/Localizer.h"
#include "tests/windows/world/ScratchFolder.h"
#include "tests/wizard/Waiting.h"

namespace {

using Arguments = std::vector<std::wstring>;

void Say(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

// Holds the lock of that name until it is killed.
int HoldLock(const Arguments& arguments) {
    InterProcessLock lock(arguments.at(0));
    lock.acquire();
    Say("held");
    Sleep(INFINITE);
    return 0;
}

int OpenLock(const Arguments& arguments) {
    try {
        Mutex mutex;
        mutex.openMutex(arguments.at(0));
        mutex.acquire();
        mutex.release();
    } catch (const Exception& exception) {
        return exception.getCode();
    }
    return 0;
}

// Writes that many records of one letter, which is both the sign of the writer and hard to overlook in a
// record of the other.
int WriteLog(const Arguments& arguments) {
    Logger::GetInstance().SetVendor(arguments.at(0));
    const int count = std::stoi(arguments.at(1));
    for (int index = 0; index < count; ++index) LogBasic(std::wstring(300, arguments.at(2).front()));
    return 0;
}

int EndWith(const Arguments& arguments) {
    return std::stoi(arguments.at(0));
}

int TellVersion(const Arguments&) {
    const int id = GetWindowsVersionId();
    std::printf("%d %ls\n", id, GetWindowsVersionName(id).c_str());
    return 0;
}

int TellLanguage(const Arguments&) {
    std::printf("%ls %d\n", GetLanguageCode().c_str(), IsRightToLeftLocale() ? 1 : 0);
    return 0;
}

class ParameterPrinter : public CCommandLineInfo {
public:
    void ParseParam(const std::wstring& parameter, bool isFlag, bool isLast) override {
        std::printf("%d%d %ls\n", isFlag ? 1 : 0, isLast ? 1 : 0, parameter.c_str());
    }
};

int TellParameters(const Arguments&) {
    ParameterPrinter printer;
    CWinApp().ParseCommandLine(printer);
    return 0;
}

int LeaveTrace(const Arguments& arguments) {
    WriteBytes(arguments.at(0), "started");
    return 0;
}

std::wstring OwnPath() {
    wchar_t path[MAX_PATH]{};
    return {path, GetModuleFileNameW(nullptr, path, MAX_PATH)};
}

// The setup program that stands in for a package's: the file beside it tells its exit code and, on a second
// line, the file without which it does not end.
int SetUp(const Arguments&) {
    WriteBytes(OwnPath() + L".calls", ToUtf8(GetCommandLineW()));
    std::istringstream script(ReadBytes(OwnPath() + L".setup"));
    int code = 0;
    std::string awaited;
    script >> code >> std::ws;
    std::getline(script, awaited);
    const bool came =
        awaited.empty() || WaitUntil([&] { return std::filesystem::exists(std::filesystem::path(awaited)); });
    return came ? code : 98;
}

const std::map<std::wstring, std::function<int(const Arguments&)>> deeds = {
    {L"hold-lock", HoldLock},       {L"open-lock", OpenLock},
    {L"write-log", WriteLog},       {L"end-with", EndWith},
    {L"tell-version", TellVersion}, {L"tell-language", TellLanguage},
    {L"leave-trace", LeaveTrace},   {L"tell-parameters", TellParameters},
    {L"/norestart", SetUp},
};

}  // namespace

int wmain(int count, wchar_t** values) {
    const Arguments all(values + 1, values + count);
    const auto deed = all.empty() ? deeds.end() : deeds.find(all.front());
    if (deed == deeds.end()) return 99;
    return deed->second(Arguments(all.begin() + 1, all.end()));
}
