#include <gtest/gtest.h>

#include <string>

#include "install/FinishTexts.h"

namespace {

struct HeaderCase {
    std::string name;
    RunOutcome outcome;
    std::wstring first;
    std::wstring second;
    std::wstring text;
    bool usbFinish = false;
};

class FinishHeaderTest : public testing::TestWithParam<HeaderCase> {};

TEST_P(FinishHeaderTest, ShowsTheTextsOfTheOutcome) {
    const HeaderKeys header = FinishHeader(GetParam().outcome);
    EXPECT_EQ(header.first.Name(), GetParam().first);
    EXPECT_EQ(header.second.Name(), GetParam().second);
    EXPECT_EQ(FinishSecondText(GetParam().outcome).Name(), GetParam().text);
    EXPECT_EQ(IsUsbFinish(GetParam().outcome), GetParam().usbFinish);
}

const std::wstring networkText = L"AMAZON_INSTALL_COMPLETE_TEXT1";
const std::wstring usb = L"AMAZON_INSTALL_USB_PATH_COMPLETE_TEXT1";

INSTANTIATE_TEST_SUITE_P(
    AllRows, FinishHeaderTest,
    testing::Values(
        HeaderCase{"Cancelled", {.installStatus = L"CANCELED"}, L"INSTALL_CANCELED_TEXT", L"", L""},
        HeaderCase{"CancelledByThePrerequisite",
                   {.installStatus = L"CANCELED", .dotNetFailed = true},
                   L"INSTALL_CANCELED_TEXT",
                   L"REQUIRED_DEPENDENCY",
                   L""},
        HeaderCase{"FailedByThePrerequisite",
                   {.installStatus = L"FAILED", .dotNetFailed = true},
                   L"INSTALLATION_FAILED_TEXT",
                   L"REQUIRED_DEPENDENCY",
                   L""},
        HeaderCase{"NotSupportedWithoutThePrerequisite",
                   {.installStatus = L"NOT_SUPPORTED", .dotNetFailed = true},
                   L"DRIVER_INSTALL_COMPLETE_TEXT",
                   L"REQUIRED_DEPENDENCY",
                   networkText},
        HeaderCase{
            "Failed", {.installStatus = L"FAILED", .usb = true}, L"INSTALLATION_FAILED_TEXT", L"", L""},
        HeaderCase{"UsbOfTheSecondKind",
                   {.usb = true, .amazonSupported = true},
                   L"AMAZON_INSTALL_COMPLETE_HEADER",
                   L"",
                   usb,
                   true},
        HeaderCase{"Usb", {.usb = true}, L"USB_FINAL_TEXT", L"", usb, true},
        HeaderCase{"OptionalRun", {.optionalInstall = true}, L"INSTALL_COMPLETE_TEXT", L"", networkText},
        HeaderCase{"PredefinedRun",
                   {.amazonSupported = true, .installFromConfig = true},
                   L"INSTALL_COMPLETE_TEXT",
                   L"",
                   networkText},
        HeaderCase{"NetworkOfTheSecondKind",
                   {.amazonSupported = true},
                   L"AMAZON_INSTALL_COMPLETE_HEADER",
                   L"",
                   networkText},
        HeaderCase{"Network", {}, L"DRIVER_INSTALL_COMPLETE_TEXT", L"", networkText},
        HeaderCase{"NotSupportedReadsAsAGoodRun",
                   {.installStatus = L"NOT_SUPPORTED"},
                   L"DRIVER_INSTALL_COMPLETE_TEXT",
                   L"",
                   networkText}),
    [](const auto& header) { return header.param.name; });

TEST(FinishPictureTest, TellsTheOutcome) {
    EXPECT_EQ(FinishPicture(L"CANCELED", true), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"FAILED", false), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"NOT_SUPPORTED", false), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"", true), L"usbconnect.png");
    EXPECT_EQ(FinishPicture(L"", false), L"installsuccess.png");
}

constexpr auto unknownStatus = static_cast<PackageStatus>(7);

TEST(StatusLooksTest, GiveEachStatusItsTextAndPicture) {
    EXPECT_EQ(StatusTextKey(PackageStatus::Done).Name(), L"COMPLETED_TEXT");
    EXPECT_EQ(StatusTextKey(PackageStatus::Failed).Name(), L"FAILED_TEXT");
    EXPECT_EQ(StatusTextKey(PackageStatus::Cancelled).Name(), L"CANCELED_TEXT");
    EXPECT_EQ(StatusTextKey(PackageStatus::Updated).Name(), L"UPDATED_TEXT");
    EXPECT_EQ(StatusTextKey(PackageStatus::NotSupported).Name(), L"NOT_SUPPORTED_TEXT");
    EXPECT_EQ(StatusTextKey(PackageStatus::NotRun).Name(), L"FAILED_TEXT");
    EXPECT_EQ(StatusTextKey(unknownStatus).Name(), L"FAILED_TEXT");
    for (const auto good : {PackageStatus::Done, PackageStatus::Updated}) EXPECT_TRUE(IsGoodStatus(good));
    for (const auto bad : {PackageStatus::NotRun, PackageStatus::Failed, PackageStatus::Cancelled,
                           PackageStatus::NotSupported, unknownStatus}) {
        EXPECT_FALSE(IsGoodStatus(bad)) << static_cast<int>(bad);
    }
}

TEST(StatusLooksTest, LetOnlyFailedAndNotSupportedLinesChangeTheRunsStatus) {
    EXPECT_EQ(InstallStatusOf(PackageStatus::Failed), L"FAILED");
    EXPECT_EQ(InstallStatusOf(PackageStatus::NotSupported), L"NOT_SUPPORTED");
    for (const auto other : {PackageStatus::NotRun, PackageStatus::Done, PackageStatus::Cancelled,
                             PackageStatus::Updated, unknownStatus}) {
        EXPECT_EQ(InstallStatusOf(other), L"") << static_cast<int>(other);
    }
}

}  // namespace
