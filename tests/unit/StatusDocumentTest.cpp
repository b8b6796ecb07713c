#include <gtest/gtest.h>

#include "install/StatusDocument.h"
#include "settings/TagDocument.h"

namespace {

MSI_APP Package(const std::wstring& name, std::int32_t status) {
    MSI_APP app;
    app.productName = name;
    app.status = status;
    return app;
}

TEST(StatusDocumentTest, IsEmptyForARunWithoutPackages) {
    EXPECT_EQ(BuildStatusDocument({}, {}), L"");
}

TEST(StatusDocumentTest, HoldsOneElementPerPackage) {
    EXPECT_EQ(BuildStatusDocument({}, {Package(L"Scan", 0), Package(L"Driver", -1)}),
              L"<App 0><NAME>Scan</NAME><STATUS>0</STATUS></App 0>"
              L"<App 1><NAME>Driver</NAME><STATUS>-1</STATUS></App 1>");
}

TEST(StatusDocumentTest, BeginsWithTheDotNetLine) {
    const DotNetResult installed = {.installed = true, .failed = false, .name = L".NET 4"};
    EXPECT_EQ(BuildStatusDocument(installed, {Package(L"Scan", 3)}),
              L"<App 0><NAME>.NET 4</NAME><STATUS>0</STATUS></App 0>"
              L"<App 1><NAME>Scan</NAME><STATUS>3</STATUS></App 1>");
}

TEST(StatusDocumentTest, TellsThatDotNetFailed) {
    const auto failed = L"<App 0><NAME>.NET 4</NAME><STATUS>1</STATUS></App 0>";
    EXPECT_EQ(BuildStatusDocument({.installed = false, .failed = true, .name = L".NET 4"}, {}), failed);
    EXPECT_EQ(BuildStatusDocument({.installed = true, .failed = true, .name = L".NET 4"}, {}), failed);
}

TEST(StatusDocumentTest, NumbersMoreThanAHundredLines) {
    const std::vector<MSI_APP> packages(120, Package(L"Scan", 1));
    const auto document = BuildStatusDocument({}, packages);
    EXPECT_EQ(TagDocument::ValueOf(document, L"App 119"), L"<NAME>Scan</NAME><STATUS>1</STATUS>");
    EXPECT_EQ(TagDocument::ValueOf(document, L"App 1"), L"<NAME>Scan</NAME><STATUS>1</STATUS>");
}

}  // namespace
