#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/windows/standins/LibraryFixture.h"

namespace {

// Each test runs a package that ticks for half a minute once its file is on the system.
class CancelTest : public LibraryTest {
protected:
    // A cancelled run may leave its file behind.
    void SetUp() override {
        LibraryTest::SetUp();
        DeleteFileW(InstalledFile(L"Ticking").c_str());
    }

    bool WaitForTicks() {
        return WaitFor([] { return Exists(InstalledFile(L"Ticking")); });
    }
};

TEST_F(CancelTest, EndsARunThatIsHalfWay) {
    std::uint32_t code = 0;
    std::thread installing([&] { code = Install(L"ticking.msi"); });
    EXPECT_TRUE(WaitForTicks());
    library.cancel();
    installing.join();
    EXPECT_EQ(code, static_cast<std::uint32_t>(ERROR_INSTALL_USEREXIT));
    EXPECT_FALSE(State(L"ticking.msi").installed);
}

TEST_F(CancelTest, EndsARunFromInsideTheCallback) {
    AnswerWith([this](const std::wstring& message) {
        if (message != L"<PERCENT>0</PERCENT>") library.cancel();
        return IDOK;
    });
    EXPECT_EQ(Install(L"ticking.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_USEREXIT));
}

TEST_F(CancelTest, EndsARunByTheAnswerOfTheCallback) {
    AnswerWith(
        [](const std::wstring& message) { return message.starts_with(L"<FILE_IN_USE>") ? IDCANCEL : IDOK; });
    EXPECT_NE(Install(L"filesinuse.msi"), 0U);
    EXPECT_FALSE(State(L"filesinuse.msi").installed);
}

TEST_F(CancelTest, ComesBeforeTheAnswerThatIsBeingGiven) {
    AnswerWith([this](const std::wstring& message) {
        if (!message.starts_with(L"<FILE_IN_USE>")) return IDOK;
        library.cancel();
        return IDRETRY;
    });
    EXPECT_NE(Install(L"filesinuse.msi"), 0U);
}

TEST_F(CancelTest, WithoutARunHasNoEffectOnTheNext) {
    library.cancel();
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
}

TEST_F(CancelTest, DoesNotOutlastItsRun) {
    AnswerWith([this](const std::wstring&) {
        library.cancel();
        return IDOK;
    });
    EXPECT_EQ(Install(L"ticking.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_USEREXIT));
    AnswerWith(nullptr);
    EXPECT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(Uninstall(L"plain-1.0.msi"), 0U);
}

TEST_F(CancelTest, LeavesASecondRunOutWhileOneIsOn) {
    std::uint32_t code = 0;
    std::thread installing([&] { code = Install(L"ticking.msi"); });
    EXPECT_TRUE(WaitForTicks());
    EXPECT_EQ(Install(L"plain-1.0.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_ALREADY_RUNNING));
    library.cancel();
    installing.join();
    EXPECT_EQ(code, static_cast<std::uint32_t>(ERROR_INSTALL_USEREXIT));
}

}  // namespace
