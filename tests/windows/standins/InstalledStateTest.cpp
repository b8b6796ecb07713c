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

struct InstalledCase {
    const char* name;
    std::vector<InstalledProduct> products;
    InstalledState state;
};

class InstalledStateTest : public testing::TestWithParam<InstalledCase> {};

TEST_P(InstalledStateTest, IsJudgedByCodeAndVersion) {
    EXPECT_EQ(Judge(package, GetParam().products), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(
    Systems, InstalledStateTest,
    testing::Values(
        InstalledCase{"Nothing", {}, {}},
        InstalledCase{"TheSameProduct",
                      {Product(L"{OWN}", L"2.0.0.7")},
                      {.installed = true, .upToDate = true, .productCode = L"{OWN}"}},
        InstalledCase{"AnOlderVersionOfTheSameProduct",
                      {Product(L"{OWN}", L"1.9.0")},
                      {.installed = true, .upgradable = true, .minorUpgrade = true, .productCode = L"{OWN}"}},
        InstalledCase{"ANewerVersionOfTheSameProduct",
                      {Product(L"{OWN}", L"2.0.1")},
                      {.installed = true, .productCode = L"{OWN}"}},
        InstalledCase{"AnOlderProductOfTheFamily",
                      {Product(L"{OTHER}", L"1.0.0")},
                      {.installed = true, .upgradable = true, .productCode = L"{OTHER}"}},
        InstalledCase{"ANewerProductOfTheFamily",
                      {Product(L"{OTHER}", L"3.0.0")},
                      {.installed = true, .productCode = L"{OTHER}"}},
        InstalledCase{"AnEqualProductOfTheFamily",
                      {Product(L"{OTHER}", L"2.0.0")},
                      {.installed = true, .upToDate = true, .productCode = L"{OTHER}"}},
        InstalledCase{"TheNewestOfTheFamilyCounts",
                      {Product(L"{OLD}", L"1.0.0"), Product(L"{NEW}", L"3.0.0"), Product(L"{MID}", L"2.0.0")},
                      {.installed = true, .productCode = L"{NEW}"}},
        InstalledCase{
            "TheOwnCodeCountsBeforeTheFamilyInAnyCase",
            {Product(L"{NEW}", L"3.0.0"), Product(L"{own}", L"1.0.0")},
            {.installed = true, .upgradable = true, .minorUpgrade = true, .productCode = L"{own}"}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
