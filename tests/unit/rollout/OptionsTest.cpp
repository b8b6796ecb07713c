#include <gmock/gmock.h>

#include "tools/Rollout/Options.h"

namespace rollout {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(RolloutOptionsTest, HaveTheirValuesWithoutACommandLine) {
    const Options options = ParseOptions({});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.wait, std::chrono::seconds(300));
    EXPECT_EQ(options.timeout, std::chrono::seconds(3600));
    EXPECT_EQ(options.onQuestion, QuestionPolicy::Answer);
    EXPECT_FALSE(options.dryRun || options.uninstall || options.help || options.inquire);
}

TEST(RolloutOptionsTest, TakeAValueAfterTheSignOrAsTheNextArgument) {
    const Options options =
        ParseOptions({L"--wait=7", L"--timeout", L"8", L"--report=a=b.json", L"--collect", L"c d"});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.wait, std::chrono::seconds(7));
    EXPECT_EQ(options.timeout, std::chrono::seconds(8));
    EXPECT_EQ(options.reportPath, L"a=b.json");
    EXPECT_EQ(options.collectFolder, L"c d");
}

TEST(RolloutOptionsTest, TakeNoTimeAtAllAndAWholeDay) {
    const Options options = ParseOptions({L"--wait=0", L"--timeout=86400"});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.wait, std::chrono::seconds(0));
    EXPECT_EQ(options.timeout, std::chrono::hours(24));
}

TEST(RolloutOptionsTest, TakeADryRunOrARemovalAlone) {
    EXPECT_EQ(ParseOptions({L"--uninstall"}).error, L"");
    EXPECT_EQ(ParseOptions({L"--dry-run"}).error, L"");
}

TEST(RolloutOptionsTest, SayWhatAQuestionIsMetWith) {
    EXPECT_EQ(ParseOptions({L"--on-question=answer"}).onQuestion, QuestionPolicy::Answer);
    EXPECT_EQ(ParseOptions({L"--on-question=fail"}).onQuestion, QuestionPolicy::Fail);
}

TEST(RolloutOptionsTest, HandTheSwitchesOfTheWizardOn) {
    const Options options = ParseOptions({L"-ip=10.0.0.5", L"/p=Front desk", L"-ip=10.0.0.6", L"-lang="});
    EXPECT_EQ(options.error, L"");
    EXPECT_THAT(options.wizardSwitches,
                ElementsAre(L"-ip=10.0.0.5", L"/p=Front desk", L"-ip=10.0.0.6", L"-lang="));
    EXPECT_EQ(options.SwitchValue(L"ip"), L"10.0.0.6");
    EXPECT_EQ(options.SwitchValue(L"lang"), L"");
    EXPECT_EQ(options.SwitchValue(L"pkgdir"), L"");
}

struct WrongCase {
    std::vector<std::wstring> arguments;
    std::wstring part;
};

void PrintTo(const WrongCase& given, std::ostream* stream) {
    *stream << testing::PrintToString(given.arguments);
}

class RolloutOptionsErrorTest : public testing::TestWithParam<WrongCase> {};

TEST_P(RolloutOptionsErrorTest, NamesWhatIsWrong) {
    EXPECT_THAT(ParseOptions(GetParam().arguments).error, HasSubstr(GetParam().part));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, RolloutOptionsErrorTest,
    testing::Values(
        WrongCase{{L"--tomeout", L"5"}, L"unknown: --tomeout"}, WrongCase{{L"word"}, L"unknown: word"},
        // The wizard knows its switches in small letters alone, and would leave this one out.
        WrongCase{{L"-IP=10.0.0.5"}, L"unknown: -IP"}, WrongCase{{L"xip=10.0.0.5"}, L"unknown: xip"},
        WrongCase{{L"--dry-run=yes"}, L"unknown"}, WrongCase{{L"--wait"}, L"--wait wants a value"},
        WrongCase{{L"--report="}, L"--report wants"}, WrongCase{{L"--wait", L"5m"}, L"wants seconds"},
        WrongCase{{L"--wait", L"-1"}, L"wants seconds"},
        WrongCase{{L"--timeout", L"86401"}, L"wants seconds, at most 86400"},
        WrongCase{{L"--timeout", L"99999999999999999999"}, L"wants seconds"},
        WrongCase{{L"--on-question", L"no"}, L"answer or fail"},
        WrongCase{{L"--dry-run", L"--uninstall"}, L"exclude"}, WrongCase{{L""}, L"unknown"}));

TEST(QuoteArgumentTest, DoublesBackslashesBeforeAQuotationMarkAlone) {
    EXPECT_EQ(QuoteArgument(L""), L"\"\"");
    EXPECT_EQ(QuoteArgument(L"\""), L"\"\\\"\"");
    EXPECT_EQ(QuoteArgument(L"a b"), L"\"a b\"");
    EXPECT_EQ(QuoteArgument(L"C:\\a\\"), L"\"C:\\a\\\\\"");
    EXPECT_EQ(QuoteArgument(L"say \"x\\\""), L"\"say \\\"x\\\\\\\"\"");
}

}  // namespace
}  // namespace rollout
