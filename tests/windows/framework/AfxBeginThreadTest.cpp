#include <windows.h>

#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>

#include "framework/AfxBeginThread.h"
#include "tests/windows/world/PatchedImport.h"
#include "tests/windows/world/TestApp.h"
#include "tests/windows/world/ThreadWatch.h"

namespace {

using testing::ElementsAre;

TEST(AfxBeginThreadTest, RunsTheProcedureOnAThreadOfItsOwn) {
    const ThreadWatch threads;
    std::atomic<DWORD> thread = 0;
    EXPECT_TRUE(AfxBeginThread([&] {
        thread = GetCurrentThreadId();
        return 31U;
    }));
    EXPECT_THAT(ThreadWatch::WaitForAll(), ElementsAre(31U));
    EXPECT_NE(thread, 0U);
    EXPECT_NE(thread, GetCurrentThreadId());
}

TEST(AfxBeginThreadTest, KeepsAnExceptionInsideAndTellsTheApplication) {
    TestApp app;
    const ThreadWatch threads;
    EXPECT_TRUE(AfxBeginThread([]() -> unsigned { throw std::runtime_error("no work"); }));
    EXPECT_THAT(ThreadWatch::WaitForAll(), ElementsAre(0U));
    EXPECT_THAT(app.Exceptions(), ElementsAre("worker thread: no work"));
}

TEST(AfxBeginThreadTest, KeepsAnExceptionOfAnyKindInside) {
    TestApp app;
    const ThreadWatch threads;
    EXPECT_TRUE(AfxBeginThread([]() -> unsigned { throw 5; }));
    EXPECT_THAT(ThreadWatch::WaitForAll(), ElementsAre(0U));
    EXPECT_THAT(app.Exceptions(), ElementsAre("worker thread: unknown exception"));
}

TEST(AfxBeginThreadTest, TellsThatNoThreadWasStarted) {
    using Procedure = unsigned(__stdcall*)(void*);
    const PatchedImport patch(
        "_beginthreadex",
        +[](void*, unsigned, Procedure, void*, unsigned, unsigned*) -> uintptr_t { return 0; });
    bool ran = false;
    EXPECT_FALSE(AfxBeginThread([&] {
        ran = true;
        return 0U;
    }));
    EXPECT_FALSE(ran);
}

}  // namespace
