#include <gtest/gtest.h>

#include "catalogue/MSI_APP.h"

namespace {

TEST(MSI_APPTest, BeginsAsAPackageThatHasNotRun) {
    const MSI_APP app;
    EXPECT_EQ(app.status, PackageStatus::NotRun);
    EXPECT_EQ(app.installSizeMb, 0);
    EXPECT_FALSE(app.installed || app.isOptional || app.isSelected || app.isPrinterDriver);
    EXPECT_TRUE(app.dependents.empty());
}

TEST(MSI_APPTest, CopiesItsDependents) {
    MSI_APP app;
    app.dependents.emplace_back().productName = L"Viewer";
    MSI_APP copy = app;
    copy.dependents.front().productName = L"Other";
    EXPECT_EQ(app.dependents.front().productName, L"Viewer");
}

TEST(MSI_APPTest, MatchesAnEmptyFilter) {
    EXPECT_TRUE(MSI_APP().Matches(L""));
}

TEST(MSI_APPTest, MatchesNoFilterWithAnUnknownName) {
    EXPECT_FALSE(MSI_APP().Matches(L"<STATUS>-1</STATUS>"));
    EXPECT_FALSE(MSI_APP().Matches(L"<ISOPTIONAL>false</ISOPTIONAL><OTHER>1</OTHER>"));
}

struct RecordFlagCase {
    std::wstring name;
    bool MSI_APP::*flag;
};

class FlagFilterTest : public testing::TestWithParam<RecordFlagCase> {};

TEST_P(FlagFilterTest, AsksForTheFlagByExactlyTrue) {
    MSI_APP with;
    with.*GetParam().flag = true;
    const auto filter = [](const std::wstring& value) {
        return L'<' + GetParam().name + L'>' + value + L"</" + GetParam().name + L'>';
    };
    EXPECT_TRUE(with.Matches(filter(L"true")));
    EXPECT_FALSE(MSI_APP().Matches(filter(L"true")));
    EXPECT_FALSE(with.Matches(filter(L"false")));
    EXPECT_TRUE(MSI_APP().Matches(filter(L"false")));
    // Any other word asks for the flag to be false, "TRUE" as well.
    EXPECT_FALSE(with.Matches(filter(L"TRUE")));
    EXPECT_TRUE(MSI_APP().Matches(filter(L"TRUE")));
    EXPECT_TRUE(with.Matches(filter(L"")));
}

INSTANTIATE_TEST_SUITE_P(Flags, FlagFilterTest,
                         testing::Values(RecordFlagCase{L"ISOPTIONAL", &MSI_APP::isOptional},
                                         RecordFlagCase{L"ISINSTALLED", &MSI_APP::isInstalled},
                                         RecordFlagCase{L"ISSELECTED", &MSI_APP::isSelected}));

TEST(MSI_APPTest, MatchesOnlyWhenEveryConditionHolds) {
    MSI_APP app;
    app.isSelected = true;
    EXPECT_TRUE(app.Matches(L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>"));
    app.isOptional = true;
    EXPECT_FALSE(app.Matches(L"<ISOPTIONAL>false</ISOPTIONAL><ISSELECTED>true</ISSELECTED>"));
}

TEST(MSI_APPTest, MatchesByDeviceType) {
    MSI_APP app;
    app.deviceType = L"SCANNER";
    EXPECT_TRUE(app.Matches(L"<DEVICETYPE>PRINTER;SCANNER;</DEVICETYPE>"));
    EXPECT_FALSE(app.Matches(L"<DEVICETYPE>PRINTER;SCANNER</DEVICETYPE>"));
}

}  // namespace
