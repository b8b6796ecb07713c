#include "tools/Rollout/OutputFiles.h"

#include <windows.h>

#include <chrono>
#include <future>
#include <thread>
#include <utility>

#include "CommonLib/Files.h"
#include "framework/Handles.h"

namespace rollout {
namespace {

constexpr std::chrono::minutes longestCollection{2};
constexpr const wchar_t* logNames[] = {L"Basic.log", L"Advanced.log", L"Packages.log"};

std::wstring CopyAll(const std::wstring& target, const std::wstring& logFolder, const std::string& report) {
    if (!CreateFolderPath(target)) return L"The folder cannot be made: " + target;
    std::wstring failure;
    for (const wchar_t* const name : logNames) {
        if (!PathExists(logFolder + name)) continue;
        if (!CopyFileTo(target + L"\\" + name, logFolder + name))
            failure = L"The log cannot be copied: " + logFolder + name;
    }
    if (!WriteWholeFile(target + L"\\report.json", report))
        failure = L"The report cannot be written into " + target;
    return failure;
}

}  // namespace

bool WriteWholeFile(const std::wstring& path, const std::string& bytes) {
    const std::wstring passing = path + L".new";
    DWORD written = 0;
    {
        const FileHandle file(CreateFileW(passing.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file || WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                               nullptr) == FALSE) {
            return false;
        }
    }
    return written == bytes.size() &&
           MoveFileExW(passing.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE;
}

std::wstring CollectFiles(const std::wstring& target, const std::wstring& logFolder,
                          const std::string& report) {
    // The thread may stay behind with a server that does not answer, so it has copies of all that it works
    // with.
    std::packaged_task<std::wstring()> task([=] { return CopyAll(target, logFolder, report); });
    std::future<std::wstring> done = task.get_future();
    std::thread(std::move(task)).detach();
    if (done.wait_for(longestCollection) != std::future_status::ready) return L"Nothing answers at " + target;
    return done.get();
}

}  // namespace rollout
