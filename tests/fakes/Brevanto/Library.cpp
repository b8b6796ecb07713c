#include "tests/fakes/Brevanto/Library.h"

#include <windows.h>

#include <chrono>
#include <thread>

#include "tests/fakes/LibraryFolder.h"
#include "tests/fakes/TextLines.h"

namespace {

std::wstring FileName(std::wstring_view path) {
    return std::wstring(path.substr(path.find_last_of(L'\\') + 1));
}

}  // namespace

ScriptedLibrary& ScriptedLibrary::GetInstance() {
    static ScriptedLibrary library;
    return library;
}

ScriptedLibrary::ScriptedLibrary() : folder(OwnFolder()), packages(ReadScript(folder + L"Brevanto.script")) {}

void ScriptedLibrary::Record(const std::vector<std::wstring>& fields) {
    AppendRecord(folder + L"Brevanto.record", fields);
}

const ScriptedPackage* ScriptedLibrary::Find(std::wstring_view path) const {
    const auto found = packages.find(FileName(path));
    return found == packages.end() ? nullptr : &found->second;
}

std::wstring ScriptedLibrary::KeptFile(std::wstring_view path) const {
    return folder + FileName(path) + L".kept";
}

void ScriptedLibrary::Keep(std::wstring_view path, std::uint32_t code, bool installed) const {
    const ScriptedPackage* const package = Find(path);
    if (package == nullptr || !package->keeps) return;
    if (code != ERROR_SUCCESS && code != ERROR_SUCCESS_REBOOT_REQUIRED &&
        code != ERROR_SUCCESS_REBOOT_INITIATED)
        return;
    AppendText(KeptFile(path), JoinFields({installed ? L"1" : L"0"}));
}

ScriptedState ScriptedLibrary::NextState(std::wstring_view path) {
    const ScriptedPackage* const package = Find(path);
    if (package != nullptr && package->keeps) {
        const auto kept = ReadLines(KeptFile(path));
        if (!kept.empty()) {
            const bool installed = kept.back().front() == L"1";
            return {.installed = installed, .upToDate = installed};
        }
    }
    if (package == nullptr || package->states.empty()) return {};
    const std::lock_guard guard(lock);
    std::size_t& given = statesGiven[FileName(path)];
    if (given < package->states.size()) ++given;
    return package->states[given - 1];
}

std::uint32_t ScriptedLibrary::Run(const ScriptedCall& call, InstallProgressCallback callback) {
    {
        const std::lock_guard guard(lock);
        if (running) return ERROR_INSTALL_ALREADY_RUNNING;
        running = true;
        cancelled = false;
    }
    // The real library calls back on a thread of its own as well.
    std::thread worker([&] {
        for (const ScriptStep& step : call.steps) Play(step, callback);
    });
    worker.join();
    const std::lock_guard guard(lock);
    running = false;
    return call.code;
}

void ScriptedLibrary::Play(const ScriptStep& step, InstallProgressCallback callback) {
    bool done = true;
    if (step.kind == L"message") {
        Record({L"answer", L"message=" + step.argument,
                L"answer=" + std::to_wstring(callback(step.argument.c_str()))});
    } else if (step.kind == L"pause") {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(step.argument)));
    } else if (step.kind == L"untilFile") {
        done = WaitForFile(step.argument);
    } else if (step.kind == L"untilCancel") {
        std::unique_lock guard(lock);
        done = change.wait_for(guard, longestWait, [this] { return cancelled; });
    } else {
        done = false;
    }
    if (!done) Record({L"failed", L"step=" + step.kind});
}

void ScriptedLibrary::Cancel() {
    const std::lock_guard guard(lock);
    cancelled = true;
    change.notify_all();
}
