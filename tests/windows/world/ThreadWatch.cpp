#include "tests/windows/world/ThreadWatch.h"

#include <process.h>

#include <mutex>

#include "framework/Handles.h"

namespace {

constexpr DWORD patienceWithThreads = 60000;

std::mutex lock;
std::vector<KernelHandle> threads;

uintptr_t __cdecl StartAndKeep(void* security, unsigned stackSize, unsigned(__stdcall* procedure)(void*),
                               void* argument, unsigned flags, unsigned* id) {
    using Start = decltype(&StartAndKeep);
    static const auto start = FindExport<Start>(GetModuleHandleW(L"msvcrt.dll"), "_beginthreadex");
    const uintptr_t thread = start(security, stackSize, procedure, argument, flags, id);
    HANDLE kept = nullptr;
    DuplicateHandle(GetCurrentProcess(), reinterpret_cast<HANDLE>(thread), GetCurrentProcess(), &kept, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    const std::lock_guard guard(lock);
    threads.emplace_back(kept);
    return thread;
}

}  // namespace

ThreadWatch::ThreadWatch() : patch("_beginthreadex", &StartAndKeep) {
    const std::lock_guard guard(lock);
    threads.clear();
}

ThreadWatch::~ThreadWatch() {
    WaitForAll();
}

std::vector<DWORD> ThreadWatch::WaitForAll() {
    const std::lock_guard guard(lock);
    std::vector<DWORD> codes;
    for (const KernelHandle& thread : threads) {
        WaitForSingleObject(thread.get(), patienceWithThreads);
        DWORD code = 0;
        GetExitCodeThread(thread.get(), &code);
        codes.push_back(code);
    }
    return codes;
}
