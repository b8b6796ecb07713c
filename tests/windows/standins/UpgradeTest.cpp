#include <gtest/gtest.h>

#include "tests/windows/standins/LibraryFixture.h"

namespace {

constexpr PackageState isUpToDate{.installed = true, .upToDate = true};
constexpr PackageState isNewerInstalled{.installed = true};

class UpgradeTest : public LibraryTest {};

TEST_F(UpgradeTest, OfAnInstalledOlderProductIsOffered) {
    ASSERT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(State(L"plain-2.0.msi"), (PackageState{.installed = true, .upgradable = true}));
}

TEST_F(UpgradeTest, ReplacesTheOlderProduct) {
    ASSERT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(Install(L"plain-2.0.msi"), 0U);
    EXPECT_EQ(State(L"plain-2.0.msi"), isUpToDate);
    EXPECT_EQ(State(L"plain-1.0.msi"), isNewerInstalled);
}

TEST_F(UpgradeTest, IsRefusedForAPackageOlderThanTheProduct) {
    ASSERT_EQ(Install(L"plain-2.0.msi"), 0U);
    EXPECT_EQ(Install(L"plain-1.0.msi"), static_cast<std::uint32_t>(ERROR_INSTALL_FAILURE));
    EXPECT_EQ(State(L"plain-2.0.msi"), isUpToDate);
}

TEST_F(UpgradeTest, IsNotOfferedForAFourthFieldAlone) {
    ASSERT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(State(L"plain-1.0.0.9.msi"), isUpToDate);
}

TEST_F(UpgradeTest, OfTheSameProductIsMinor) {
    ASSERT_EQ(Install(L"minor-1.0.msi"), 0U);
    EXPECT_EQ(State(L"minor-1.1.msi"),
              (PackageState{.installed = true, .upgradable = true, .minorUpgrade = true}));
}

TEST_F(UpgradeTest, OfTheSameProductIsAppliedByAReinstall) {
    ASSERT_EQ(Install(L"minor-1.0.msi"), 0U);
    EXPECT_EQ(Install(L"minor-1.1.msi"), static_cast<std::uint32_t>(ERROR_PRODUCT_VERSION));
    EXPECT_EQ(Install(L"minor-1.1.msi", L"<TAG_REINSTALL>true</TAG_REINSTALL>"), 0U);
    EXPECT_EQ(State(L"minor-1.1.msi"), isUpToDate);
    EXPECT_EQ(State(L"minor-1.0.msi"), isNewerInstalled);
}

TEST_F(UpgradeTest, DoesNotHinderTheRemovalByAPackageOfAnotherVersion) {
    ASSERT_EQ(Install(L"plain-1.0.msi"), 0U);
    EXPECT_EQ(Uninstall(L"plain-2.0.msi"), 0U);
    EXPECT_EQ(State(L"plain-1.0.msi"), (PackageState{}));
}

}  // namespace
