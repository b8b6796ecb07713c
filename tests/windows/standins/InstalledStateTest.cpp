#include <gtest/gtest.h>

#include "standins/Brevanto/InstalledState.h"

using brevanto::InstalledProduct;
using brevanto::InstalledState;
using brevanto::Judge;
using brevanto::PackageIdentity;
using brevanto::ParseProductVersion;

namespace {

const PackageIdentity package = {
    .productCode = L"{OWN}", .upgradeCode = L"{FAMILY}", .version = ParseProductVersion(L"2.0.0")};

InstalledProduct Product(const wchar_t* code, const wchar_t* version) {
    return {.productCode = code, .version = ParseProductVersion(version)};
}

struct Case {
    const char* name;
    std::vector<InstalledProduct> products;
    InstalledState state;
};

class InstalledStateTest : public testing::TestWithParam<Case> {};

TEST_P(InstalledStateTest, IsJudgedByCodeAndVersion) {
    EXPECT_EQ(Judge(package, GetParam().products), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(
    Systems, InstalledStateTest,
    testing::Values(
        Case{"Nothing", {}, {}},
        Case{"TheSameProduct",
             {Product(L"{OWN}", L"2.0.0.7")},
             {.installed = true, .upToDate = true, .productCode = L"{OWN}"}},
        Case{"AnOlderVersionOfTheSameProduct",
             {Product(L"{OWN}", L"1.9.0")},
             {.installed = true, .upgradable = true, .minorUpgrade = true, .productCode = L"{OWN}"}},
        Case{"ANewerVersionOfTheSameProduct",
             {Product(L"{OWN}", L"2.0.1")},
             {.installed = true, .productCode = L"{OWN}"}},
        Case{"AnOlderProductOfTheFamily",
             {Product(L"{OTHER}", L"1.0.0")},
             {.installed = true, .upgradable = true, .productCode = L"{OTHER}"}},
        Case{"ANewerProductOfTheFamily",
             {Product(L"{OTHER}", L"3.0.0")},
             {.installed = true, .productCode = L"{OTHER}"}},
        Case{"AnEqualProductOfTheFamily",
             {Product(L"{OTHER}", L"2.0.0")},
             {.installed = true, .upToDate = true, .productCode = L"{OTHER}"}},
        Case{"TheNewestOfTheFamilyCounts",
             {Product(L"{OLD}", L"1.0.0"), Product(L"{NEW}", L"3.0.0"), Product(L"{MID}", L"2.0.0")},
             {.installed = true, .productCode = L"{NEW}"}},
        Case{"TheOwnCodeCountsBeforeTheFamilyInAnyCase",
             {Product(L"{NEW}", L"3.0.0"), Product(L"{own}", L"1.0.0")},
             {.installed = true, .upgradable = true, .minorUpgrade = true, .productCode = L"{own}"}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
