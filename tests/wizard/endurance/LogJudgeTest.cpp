#include <gmock/gmock.h>

#include "CommonLib/LogRecord.h"
#include "tests/wizard/endurance/LogJudge.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr LogTime noon{.year = 2026, .month = 3, .day = 1, .hour = 12};

std::string Bytes(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

std::string Record(std::wstring_view message) {
    return Bytes(FormatBasicRecord(L"ERROR", noon, message));
}

std::vector<std::string> Damage(std::string_view log, const std::vector<std::size_t>& cuts = {}) {
    return DamageIn(log, LogForm::Basic, cuts);
}

TEST(LogJudgeTest, FindsNothingInWholeLogs) {
    EXPECT_THAT(Damage(Record(L"one") + Record(L"<OEM>A</OEM>\r\n<B>1</B>") + Record(L"two")), IsEmpty());
    const std::wstring advanced =
        FormatAdvancedRecord({}, noon, {.processId = 32, .threadId = 36}, L"K", L"a");
    EXPECT_THAT(DamageIn(Bytes(advanced), LogForm::Advanced, {}), IsEmpty());
    EXPECT_THAT(DamageIn({}, LogForm::Advanced, {}), IsEmpty());
}

TEST(LogJudgeTest, FindsARecordWithoutItsEnd) {
    const std::string log = Record(L"one") + Record(L"two");
    EXPECT_THAT(Damage(log.substr(0, log.size() - 6)), ElementsAre("ends within a record"));
    EXPECT_THAT(Damage(log.substr(0, log.size() - 7)), Contains("ends within a sign"));
}

TEST(LogJudgeTest, TakesTheEndOfARunThatWasBrokenOff) {
    const std::string log = Record(L"one") + Record(L"two");
    for (std::size_t size = log.size() - 1; size > log.size() / 2; --size)
        EXPECT_THAT(Damage(log.substr(0, size), {size}), IsEmpty()) << size;
}

TEST(LogJudgeTest, FindsARecordBesideWhatWasBrokenOff) {
    const std::string cut = Record(L"one").substr(0, 66);
    EXPECT_THAT(Damage(cut + Record(L"two"), {cut.size()}), ElementsAre("has two records in one line"));
    EXPECT_THAT(Damage(cut + Bytes(L"\r\n") + Record(L"two"), {cut.size()}), IsEmpty());
}

TEST(LogJudgeTest, FindsSignsThatAreShiftedByAByte) {
    const std::string cut = Record(L"one").substr(0, 65);
    EXPECT_THAT(Damage(cut + Record(L"two"), {cut.size()}), Contains("holds signs that nobody wrote"));
}

TEST(LogJudgeTest, FindsALineThatIsNoRecord) {
    EXPECT_THAT(Damage(Record(L"one") + Bytes(L"lost\r\n")), ElementsAre("has a line that is no record"));
    EXPECT_THAT(DamageIn(Record(L"one"), LogForm::Advanced, {}), ElementsAre("has a line that is no record"));
}

TEST(LogJudgeTest, CountsATextAsOftenAsItStandsThere) {
    EXPECT_EQ(CountIn(Record(L"one") + Record(L"one more"), L"one"), 2U);
    EXPECT_EQ(CountIn(Record(L"one") + Record(L"one more"), L"one\r\n"), 1U);
}

}  // namespace
