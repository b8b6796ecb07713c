#include <gtest/gtest.h>

#include "install/StatusDocument.h"
#include "settings/TagDocument.h"

namespace {

MSI_APP Package(const std::wstring& name, PackageStatus status) {
    MSI_APP app;
    app.productName = name;
    app.status = status;
    return app;
}

TEST(StatusDocumentTest, IsEmptyForARunWithoutPackages) {
    EXPECT_EQ(BuildStatusDocument({}, {}), L"");
}

TEST(StatusDocumentTest, HoldsOneElementPerPackage) {
    EXPECT_EQ(BuildStatusDocument(
                  {}, {Package(L"Scan", PackageStatus::Done), Package(L"Driver", PackageStatus::NotRun)}),
              L"<App 0><NAME>Scan</NAME><STATUS>0</STATUS></App 0>"
              L"<App 1><NAME>Driver</NAME><STATUS>-1</STATUS></App 1>");
}

TEST(StatusDocumentTest, BeginsWithTheDotNetLine) {
    const DotNetResult installed = {.installed = true, .failed = false, .name = L".NET 4"};
    EXPECT_EQ(BuildStatusDocument(installed, {Package(L"Scan", PackageStatus::Updated)}),
              L"<App 0><NAME>.NET 4</NAME><STATUS>0</STATUS></App 0>"
              L"<App 1><NAME>Scan</NAME><STATUS>3</STATUS></App 1>");
}

TEST(StatusDocumentTest, TellsThatDotNetFailed) {
    const auto failed = L"<App 0><NAME>.NET 4</NAME><STATUS>1</STATUS></App 0>";
    EXPECT_EQ(BuildStatusDocument({.installed = false, .failed = true, .name = L".NET 4"}, {}), failed);
    EXPECT_EQ(BuildStatusDocument({.installed = true, .failed = true, .name = L".NET 4"}, {}), failed);
}

TEST(StatusDocumentTest, NumbersMoreThanAHundredLines) {
    const std::vector<MSI_APP> packages(120, Package(L"Scan", PackageStatus::Failed));
    const auto document = BuildStatusDocument({}, packages);
    EXPECT_EQ(TagDocument::ValueOf(document, L"App 119"), L"<NAME>Scan</NAME><STATUS>1</STATUS>");
    EXPECT_EQ(TagDocument::ValueOf(document, L"App 1"), L"<NAME>Scan</NAME><STATUS>1</STATUS>");
}

TEST(StatusLinesTest, ComeBackFromTheDocumentThatTheRunHasBuilt) {
    MSI_APP failed;
    failed.productName = L"Scan Desk";
    failed.status = PackageStatus::Failed;
    const auto lines =
        ReadStatusDocument(BuildStatusDocument({.installed = true, .name = L".NET"}, {failed}));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].name, L".NET");
    EXPECT_EQ(lines[0].status, PackageStatus::Done);
    EXPECT_EQ(lines[1].name, L"Scan Desk");
    EXPECT_EQ(lines[1].status, PackageStatus::Failed);
}

TEST(StatusLinesTest, EndAtTheHundredth) {
    std::vector<MSI_APP> apps(101);
    for (std::size_t index = 0; index < apps.size(); ++index)
        apps[index].productName = std::to_wstring(index);
    apps.back().status = PackageStatus::Failed;
    const auto lines = ReadStatusDocument(BuildStatusDocument({}, apps));
    ASSERT_EQ(lines.size(), 100U);
    EXPECT_EQ(lines.back().name, L"99");
}

TEST(StatusLinesTest, AreNoneForADocumentWithoutThem) {
    EXPECT_TRUE(ReadStatusDocument(L"").empty());
}

TEST(StatusLinesTest, KeepANumberThatIsNoStatus) {
    const auto lines = ReadStatusDocument(L"<App 0><NAME>Scan</NAME><STATUS>7</STATUS></App 0>");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(static_cast<int>(lines.front().status), 7);
}

}  // namespace
