#include <gtest/gtest.h>

#include <string>

#include "install/FinishTexts.h"
#include "install/StatusDocument.h"

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
    EXPECT_EQ(header.first, GetParam().first);
    EXPECT_EQ(header.second, GetParam().second);
    EXPECT_EQ(FinishSecondText(GetParam().outcome), GetParam().text);
    EXPECT_EQ(IsUsbFinish(GetParam().outcome), GetParam().usbFinish);
}

const std::wstring network = L"AMAZON_INSTALL_COMPLETE_TEXT1";
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
        HeaderCase{
            "Failed", {.installStatus = L"FAILED", .usb = true}, L"INSTALLATION_FAILED_TEXT", L"", L""},
        HeaderCase{"UsbOfTheSecondKind",
                   {.usb = true, .amazonSupported = true},
                   L"AMAZON_INSTALL_COMPLETE_HEADER",
                   L"",
                   usb,
                   true},
        HeaderCase{"Usb", {.usb = true}, L"USB_FINAL_TEXT", L"", usb, true},
        HeaderCase{"OptionalRun", {.optionalInstall = true}, L"INSTALL_COMPLETE_TEXT", L"", network},
        HeaderCase{"PredefinedRun",
                   {.amazonSupported = true, .installFromConfig = true},
                   L"INSTALL_COMPLETE_TEXT",
                   L"",
                   network},
        HeaderCase{"NetworkOfTheSecondKind",
                   {.amazonSupported = true},
                   L"AMAZON_INSTALL_COMPLETE_HEADER",
                   L"",
                   network},
        HeaderCase{"Network", {}, L"DRIVER_INSTALL_COMPLETE_TEXT", L"", network},
        HeaderCase{"NotSupportedReadsAsAGoodRun",
                   {.installStatus = L"NOT_SUPPORTED"},
                   L"DRIVER_INSTALL_COMPLETE_TEXT",
                   L"",
                   network}),
    [](const auto& header) { return header.param.name; });

TEST(FinishPictureTest, TellsTheOutcome) {
    EXPECT_EQ(FinishPicture(L"CANCELED", true), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"FAILED", false), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"NOT_SUPPORTED", false), L"installerror.png");
    EXPECT_EQ(FinishPicture(L"", true), L"usbconnect.png");
    EXPECT_EQ(FinishPicture(L"", false), L"installsuccess.png");
}

TEST(StatusLinesTest, ComeBackFromTheDocumentThatTheRunHasBuilt) {
    MSI_APP failed;
    failed.productName = L"Scan Desk";
    failed.status = 1;
    const auto lines =
        ReadStatusDocument(BuildStatusDocument({.installed = true, .name = L".NET"}, {failed}));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].name, L".NET");
    EXPECT_EQ(lines[0].code, 0);
    EXPECT_EQ(lines[1].name, L"Scan Desk");
    EXPECT_EQ(lines[1].code, 1);
}

TEST(StatusLinesTest, EndAtTheHundredth) {
    std::vector<MSI_APP> apps(101);
    for (size_t index = 0; index < apps.size(); ++index) apps[index].productName = std::to_wstring(index);
    apps.back().status = 1;
    const auto lines = ReadStatusDocument(BuildStatusDocument({}, apps));
    ASSERT_EQ(lines.size(), 100U);
    EXPECT_EQ(lines.back().name, L"99");
}

TEST(StatusLinesTest, AreNoneForADocumentWithoutThem) {
    EXPECT_TRUE(ReadStatusDocument(L"").empty());
}

TEST(StatusLooksTest, GiveEachCodeItsTextAndPicture) {
    EXPECT_EQ(StatusTextKey(0), L"COMPLETED_TEXT");
    EXPECT_EQ(StatusTextKey(1), L"FAILED_TEXT");
    EXPECT_EQ(StatusTextKey(2), L"CANCELED_TEXT");
    EXPECT_EQ(StatusTextKey(3), L"UPDATED_TEXT");
    EXPECT_EQ(StatusTextKey(4), L"NOT_SUPPORTED_TEXT");
    EXPECT_EQ(StatusTextKey(-1), L"FAILED_TEXT");
    for (const int good : {0, 3}) EXPECT_TRUE(IsGoodStatus(good)) << good;
    for (const int bad : {-1, 1, 2, 4}) EXPECT_FALSE(IsGoodStatus(bad)) << bad;
}

TEST(StatusLooksTest, LetOnlyFailedAndNotSupportedLinesChangeTheRunsStatus) {
    EXPECT_EQ(InstallStatusOf(1), L"FAILED");
    EXPECT_EQ(InstallStatusOf(4), L"NOT_SUPPORTED");
    for (const int other : {-1, 0, 2, 3}) EXPECT_EQ(InstallStatusOf(other), L"") << other;
}

}  // namespace
