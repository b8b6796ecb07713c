#include "tests/fakes/LibraryFolder.h"

#include <windows.h>

#include <chrono>
#include <mutex>
#include <sstream>
#include <thread>

#include "tests/fakes/TextLines.h"

namespace {

using namespace std::chrono_literals;

constexpr auto pollInterval = 5ms;

}  // namespace

std::wstring OwnFolder() {
    static const int ownAddress = 0;
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ownAddress), &self);
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(self, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

bool WaitForFile(const std::wstring& path) {
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(pollInterval);
    }
    return true;
}

void AppendRecord(const std::wstring& path, const std::vector<std::wstring>& fields) {
    static std::mutex lock;
    std::wostringstream thread;
    thread << std::hex << GetCurrentThreadId();
    std::vector<std::wstring> line{thread.str()};
    line.insert(line.end(), fields.begin(), fields.end());
    const std::lock_guard guard(lock);
    AppendText(path, JoinFields(line));
}

std::wstring Field(const wchar_t* name, const std::wstring& value) {
    return std::wstring(name) + L"=" + value;
}

std::wstring Field(const wchar_t* name, unsigned long long value) {
    return Field(name, std::to_wstring(value));
}
