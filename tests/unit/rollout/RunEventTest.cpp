#include <gmock/gmock.h>

#include "tools/Rollout/RunEvent.h"

namespace rollout {
namespace {

using testing::HasSubstr;

RunEvent EventFor(std::uint32_t code) {
    return EndOf(
        {.action = "install", .folder = L"C:\\p", .verdict = {.code = code, .reason = L"So it went."}});
}

TEST(RunEventTest, IsAsGraveAsItsCode) {
    EXPECT_EQ(EventFor(0).kind, EventKind::Information);
    EXPECT_EQ(EventFor(3010).kind, EventKind::Information);
    for (const std::uint32_t code : {1602U, 1618U, 1638U, 1460U})
        EXPECT_EQ(EventFor(code).kind, EventKind::Warning);
    for (const std::uint32_t code : {1603U, 87U, 740U}) EXPECT_EQ(EventFor(code).kind, EventKind::Error);
}

TEST(RunEventTest, HasANumberByWhichItIsFound) {
    EXPECT_EQ(BeginningOf({}).id, 1U);
    EXPECT_EQ(EventFor(0).id, 2U);
    EXPECT_EQ(EventFor(3010).id, 3U);
    EXPECT_EQ(EventFor(1602).id, 4U);
    EXPECT_EQ(EventFor(1603).id, 5U);
}

TEST(RunEventTest, NamesNoProductOfWhichNothingIsKnown) {
    const Report report{.packages = {{.product = L"Alpha"}, {.product = L"Beta"}},
                        .results = {{.outcome = PackageOutcome::Installed}}};
    EXPECT_THAT(EndOf(report).text, HasSubstr(L"Alpha"));
    EXPECT_THAT(EndOf(report).text, testing::Not(HasSubstr(L"Beta")));
    EXPECT_THAT(EndOf({.results = report.results}).text, testing::Not(HasSubstr(L"installed")));
}

TEST(RunEventTest, NamesThePackageTheReasonAndWhatBecameOfEachProduct) {
    const RunEvent event = EndOf({.action = "uninstall",
                                  .folder = L"C:\\p",
                                  .verdict = {.code = 1603, .reason = L"So it went."},
                                  .packages = {{.product = L"A", .version = L"1.0"}},
                                  .results = {{.outcome = PackageOutcome::Remains}}});
    EXPECT_THAT(event.text, HasSubstr(L"Removal of the package in C:\\p: So it went. (1603)"));
    EXPECT_THAT(event.text, HasSubstr(L"A 1.0: remains"));
}

TEST(RunEventTest, IsNoLongerThanTheSystemTakes) {
    const std::vector<PackageEntry> packages(2000, {.product = std::wstring(100, L'x')});
    const Report report{.packages = packages, .results = std::vector<PackageResult>(packages.size())};
    EXPECT_EQ(EndOf(report).text.size(), 30000U);
    const std::size_t rest = EndOf({}).text.size();
    EXPECT_EQ(EndOf({.verdict = {.reason = std::wstring(30001 - rest, L'x')}}).text.size(), 30000U);
}

}  // namespace
}  // namespace rollout
