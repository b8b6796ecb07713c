#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "CommonLib/InterProcessLock.h"
#include "CommonLib/Mutex.h"
#include "CommonLib/Win32Exception.h"
#include "tests/windows/world/ChildProcess.h"
#include "tests/windows/world/NamedMutex.h"

namespace {

// A name that no other test and no other process has.
std::wstring OwnName() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    return L"kestrune-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(test->line());
}

// The exception that the call throws, told as message and code; empty if it throws none.
template <class Call>
std::wstring FailureOf(Call call) {
    try {
        call();
    } catch (const Win32Exception& exception) {
        return exception.getMessage() + L" / " + std::to_wstring(exception.getCode());
    }
    return {};
}

TEST(MutexTest, IsNotOwnedWhenItIsCreated) {
    Mutex mutex;
    EXPECT_NE(mutex.createMutex(nullptr, OwnName()), nullptr);
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, KnowsWhetherItWasThereBefore) {
    Mutex first;
    Mutex second;
    first.createMutex(nullptr, OwnName());
    EXPECT_FALSE(first.WasThereBefore());
    second.createMutex(nullptr, OwnName());
    EXPECT_TRUE(second.WasThereBefore());
    second.createMutex(nullptr, OwnName() + L" another");
    EXPECT_FALSE(second.WasThereBefore());
}

TEST(MutexTest, IsTakenBetweenAcquireAndRelease) {
    Mutex mutex;
    mutex.createMutex(nullptr, OwnName());
    mutex.acquire();
    EXPECT_TRUE(IsTaken(OwnName()));
    mutex.release();
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, IsFreeAfterTwoAcquiresAndOneRelease) {
    Mutex mutex;
    mutex.createMutex(nullptr, OwnName());
    mutex.acquire();
    mutex.acquire();
    mutex.release();
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, StaysTakenWhenAForeignThreadReleasesIt) {
    Mutex mutex;
    mutex.createMutex(nullptr, OwnName());
    mutex.acquire();
    std::thread([&] { EXPECT_NO_THROW(mutex.release()); }).join();
    EXPECT_TRUE(IsTaken(OwnName()));
    mutex.release();
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, PassesToAndFroBetweenThreadsThatShareTheObject) {
    Mutex mutex;
    mutex.createMutex(nullptr, OwnName());
    int count = 0;
    const auto work = [&] {
        for (int turn = 0; turn < 2000; ++turn) {
            mutex.acquire();
            ++count;
            mutex.release();
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count, 4000);
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, DoesNothingWhenReleasedWithoutBeingAcquired) {
    Mutex mutex;
    mutex.createMutex(nullptr, OwnName());
    EXPECT_NO_THROW(mutex.release());
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(MutexTest, CannotBeOpenedBeforeItExists) {
    EXPECT_EQ(FailureOf([] { Mutex().openMutex(OwnName()); }),
              L"Mutex::openMutex() openMutex failed / " + std::to_wstring(ERROR_FILE_NOT_FOUND));
}

TEST(MutexTest, CanBeOpenedAndTakenByItsName) {
    Mutex creator;
    creator.createMutex(nullptr, OwnName());
    Mutex opener;
    EXPECT_NE(opener.openMutex(OwnName()), nullptr);
    opener.acquire();
    EXPECT_TRUE(IsTaken(OwnName()));
    opener.release();
}

TEST(MutexTest, CannotBeCreatedUnderTheNameOfAnotherKindOfObject) {
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, OwnName().c_str()));
    EXPECT_EQ(FailureOf([] { Mutex().createMutex(nullptr, OwnName()); }),
              L"Mutex::createMutex() CreateMutex failed / " + std::to_wstring(ERROR_INVALID_HANDLE));
}

TEST(MutexTest, CannotBeAcquiredWithoutAHandle) {
    EXPECT_EQ(FailureOf([] { Mutex().acquire(); }),
              L"Mutex::acquire() WaitForSingleObject failed / " + std::to_wstring(ERROR_INVALID_HANDLE));
}

TEST(MutexTest, TellsOfAReleaseThatFails) {
    Mutex mutex;
    const HANDLE handle = mutex.createMutex(nullptr, OwnName());
    mutex.acquire();
    // Somebody has released it behind the object's back.
    ReleaseMutex(handle);
    EXPECT_EQ(FailureOf([&] { mutex.release(); }),
              L"Mutex::release() ReleaseMutex failed / " + std::to_wstring(ERROR_NOT_OWNER));
}

TEST(MutexTest, IsGoneWithTheLastObjectThatHoldsIt) {
    { Mutex().createMutex(nullptr, OwnName()); }
    EXPECT_NE(FailureOf([] { Mutex().openMutex(OwnName()); }), L"");
}

TEST(InterProcessLockTest, RefusesToBeAcquiredWithoutAName) {
    InterProcessLock lock(L"");
    EXPECT_EQ(FailureOf([&] { lock.acquire(); }), L"InterProcessLock has no name / 0");
}

TEST(InterProcessLockTest, KeepsAnotherProcessWaiting) {
    ChildProcess holder(CompanionPath(), L"hold-lock " + OwnName());
    ASSERT_EQ(holder.ReadLine(), "held");
    EXPECT_TRUE(IsTaken(OwnName()));
}

TEST(InterProcessLockTest, IsAcquiredWhenItsHolderWasKilled) {
    InterProcessLock lock(OwnName());
    ChildProcess holder(CompanionPath(), L"hold-lock " + OwnName());
    ASSERT_EQ(holder.ReadLine(), "held");
    ASSERT_TRUE(IsTaken(OwnName()));
    holder.Kill();
    lock.acquire();
    EXPECT_TRUE(IsTaken(OwnName()));
    lock.release();
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(InterProcessLockTest, IsFreeAgainBehindItsGuard) {
    InterProcessLock lock(OwnName());
    {
        const InterProcessLockGuard guard(lock);
        EXPECT_TRUE(IsTaken(OwnName()));
    }
    EXPECT_FALSE(IsTaken(OwnName()));
}

TEST(InterProcessLockTest, CanBeTakenByAProcessWithoutAdministratorRights) {
    const InterProcessLock lock(OwnName());
    EXPECT_EQ(RunCompanion(L"open-lock " + OwnName(), ChildProcess::Rights::WithoutAdministrators), 0U);
}

}  // namespace
