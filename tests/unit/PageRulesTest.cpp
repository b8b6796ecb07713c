// Which pages a package's settings show.

#include <gmock/gmock.h>

#include "app/PageRules.h"

namespace {

using testing::ElementsAre;

// The titles of the pages that are shown at the start and, of those that are asked again, once tags have
// changed.
std::vector<std::wstring_view> ShownPages(const InstallSettings& settings) {
    std::vector<std::wstring_view> titles;
    for (const PageRule* rule : PageRules::inOrder) {
        if (!rule->hiddenLater.value_or(rule->hiddenAtFirst).Holds(settings)) titles.push_back(rule->title);
    }
    return titles;
}

TEST(PageRulesTest, ShowsWhatNoFlagHides) {
    EXPECT_THAT(ShownPages({}), ElementsAre(L"Welcome", L"Licence", L"Connectivity", L"Discovered printers",
                                            L"Progress", L"Finish", L"Finish of the optional software"));
}

TEST(PageRulesTest, ShowsAndHidesByFlags) {
    InstallSettings settings;
    settings.SetBools({{Tag::HIDE_START, true},
                       {Tag::HIDE_EULA, true},
                       {Tag::HIDE_CONNECTIVITY, true},
                       {Tag::HIDE_DISCOVERY, true},
                       {Tag::HIDE_PROGRESS, true},
                       {Tag::HIDE_FINAL, true},
                       {Tag::SHOW_MANUFACTURERS, true},
                       {Tag::TAG_DIALOG_SHOW_BYPASS, true},
                       {Tag::DIALOG_ADD_PORT, true},
                       {Tag::REBOOT, true}});
    EXPECT_THAT(ShownPages(settings), ElementsAre(L"Manufacturer", L"Optional software", L"Add port",
                                                  L"Restart", L"Restart after the optional software"));
}

TEST(PageRulesTest, ThePageOfTheConnectionIsForPackagesOfTheSecondVariant) {
    const DriverInfo noDrivers;
    InstallSettings first;
    SettleChainTags(first, noDrivers);
    EXPECT_TRUE(first.GetBool(Tag::HIDE_CONNECTIVITY));
    EXPECT_FALSE(first.GetBool(Tag::HIDE_SECURITY));
    InstallSettings second;
    second.SetString(Tag::AMAZON_SUPPORTED, L"TRUE");
    SettleChainTags(second, noDrivers);
    EXPECT_FALSE(second.GetBool(Tag::HIDE_CONNECTIVITY));
    EXPECT_TRUE(second.GetBool(Tag::HIDE_SECURITY));
}

TEST(PageRulesTest, APackageWithoutDriversIsOneOfApplications) {
    const DriverInfo noDrivers;
    InstallSettings settings;
    SettleChainTags(settings, noDrivers);
    EXPECT_TRUE(settings.GetBool(Tag::APPS_ONLY_PACKAGE));
    settings.SetBool(Tag::INSTALL_FROM_CONFIG, true);
    SettleChainTags(settings, noDrivers);
    EXPECT_FALSE(settings.GetBool(Tag::APPS_ONLY_PACKAGE));
}

}  // namespace
