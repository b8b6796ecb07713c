#include <gmock/gmock.h>

#include "CommonLib/LogRecord.h"
#include "tools/Rollout/RunLog.h"

namespace rollout {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr LogTime recordTime{.year = 2026, .month = 3, .day = 1, .hour = 9, .minute = 5, .second = 7};

std::string Utf16Bytes(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>((unit >> 8) & 0xFF);
    }
    return bytes;
}

std::string LogLine(std::wstring_view level, std::wstring_view message) {
    return Utf16Bytes(FormatBasicRecord(level, recordTime, message));
}

testing::Matcher<const RunRecord&> Is(const std::wstring& level, const std::wstring& message) {
    return testing::AllOf(Field(&RunRecord::level, level), Field(&RunRecord::message, message));
}

TEST(RecordReaderTest, ReadsWhatTheLogWrites) {
    RecordReader reader;
    const auto records = reader.Take(LogLine(L"ERROR", L"Failed: 7 \u20AC") + LogLine(L"", L"Done  so far"));
    EXPECT_THAT(records, ElementsAre(Is(L"ERROR", L"Failed: 7 \u20AC"), Is(L"", L"Done  so far")));
    EXPECT_EQ(records.front().time, L"2026/03/01-09:05:07");
}

TEST(RecordReaderTest, ReadsALevelThatIsWiderThanItsColumn) {
    RecordReader reader;
    EXPECT_THAT(reader.Take(LogLine(L"ASTONISHMENT", L"x")), ElementsAre(Is(L"ASTONISHMENT", L"x")));
}

TEST(RecordReaderTest, ReadsAnEmptyMessage) {
    RecordReader reader;
    EXPECT_THAT(reader.Take(LogLine(L"", L"")), ElementsAre(Is(L"", L"")));
}

// However the bytes come, each record comes once.
TEST(RecordReaderTest, WaitsForTheEndOfALine) {
    const std::string bytes = LogLine(L"ERROR", L"One") + LogLine(L"", L"Two");
    for (const std::size_t piece : {1U, 3U}) {
        RecordReader reader;
        std::vector<RunRecord> records;
        for (std::size_t start = 0; start < bytes.size(); start += piece) {
            for (RunRecord& record : reader.Take(std::string_view(bytes).substr(start, piece)))
                records.push_back(std::move(record));
        }
        EXPECT_THAT(records, ElementsAre(Is(L"ERROR", L"One"), Is(L"", L"Two")));
    }
}

TEST(RecordReaderTest, KeepsTheLinesOfAMessageTogether) {
    RecordReader reader;
    EXPECT_THAT(reader.Take(LogLine(L"", L"<A>1</A>\r\n<B>2</B>") + LogLine(L"", L"Next")),
                ElementsAre(Is(L"", L"<A>1</A>\r\n<B>2</B>"), Is(L"", L"Next")));
}

TEST(RecordReaderTest, TakesALineWithoutATimeForAPartOfAMessage) {
    const std::wstring head = L"ERROR    ";
    const std::wstring time = L"2026/11/22-10:00:30";
    for (std::size_t place = 0; place < time.size(); ++place) {
        RecordReader reader;
        std::wstring likeOne = head + time + L"  no record";
        likeOne[head.size() + place] = L'x';
        EXPECT_THAT(reader.Take(LogLine(L"", L"Message\r\n" + likeOne)),
                    ElementsAre(Is(L"", L"Message\r\n" + likeOne)));
    }
}

TEST(RecordReaderTest, DropsWhatStandsBeforeTheFirstRecord) {
    RecordReader reader;
    EXPECT_THAT(reader.Take(Utf16Bytes(L"rest of an older one\r\n") + LogLine(L"", L"New")),
                ElementsAre(Is(L"", L"New")));
}

TEST(RecordReaderTest, DoesNotKeepALineWithoutAnEnd) {
    RecordReader reader;
    EXPECT_THAT(reader.Take(std::string(std::size_t{1} << 24, 'x')), IsEmpty());
    EXPECT_THAT(reader.Take(LogLine(L"", L"New")), ElementsAre(Is(L"", L"New")));
}

TEST(RecordReaderTest, KeepsTheLongestLineThatItWaitsFor) {
    const std::string head = LogLine(L"", L"").substr(0, std::size_t{2} * 30);
    for (const std::size_t excess : {0U, 1U}) {
        RecordReader reader;
        reader.Take(head + Utf16Bytes(std::wstring((std::size_t{1} << 22) - 30 + excess, L'x')));
        EXPECT_EQ(reader.Take(Utf16Bytes(L"\r\n")).size(), 1 - excess);
    }
}

struct FindingCase {
    const wchar_t* message;
    bool LogFindings::*finding;
};

void PrintTo(const FindingCase& given, std::ostream* stream) {
    *stream << testing::PrintToString(std::wstring(given.message));
}

class LogFindingsTest : public testing::TestWithParam<FindingCase> {};

TEST_P(LogFindingsTest, FollowFromTheRecord) {
    LogFindings findings;
    findings.Note({.message = L"Something else"});
    EXPECT_FALSE(findings.*GetParam().finding);
    findings.Note({.message = GetParam().message});
    EXPECT_TRUE(findings.*GetParam().finding);
    findings.Note({.message = L"Something else"});
    EXPECT_TRUE(findings.*GetParam().finding);
}

INSTANTIATE_TEST_SUITE_P(
    Records, LogFindingsTest,
    testing::Values(FindingCase{L"Installing Applications", &LogFindings::began},
                    FindingCase{L"MSI Installer returned an error", &LogFindings::packageFailed},
                    FindingCase{L"MSI Installer returned user canceled.", &LogFindings::packageCancelled},
                    FindingCase{L"MSI Installer returned reboot requires.", &LogFindings::restartWanted},
                    FindingCase{L"!!!! Install .Net 4.0 Framework is required to run this package.",
                                &LogFindings::prerequisiteMissing},
                    FindingCase{L"There is another instance of Kestrune running", &LogFindings::otherCopy},
                    FindingCase{L"Failed to load Brevanto.dll!", &LogFindings::libraryMissing},
                    FindingCase{L"Unhandled exception in the install thread: x", &LogFindings::crashed},
                    FindingCase{L"The install thread could not be started", &LogFindings::crashed}));

TEST(LogFindingsTest, KeepTheRemovalsThatFailed) {
    LogFindings findings;
    findings.Note({.message = L"Removal of C:\\a.msi failed with error=1603"});
    findings.Note({.message = L"Removal of C:\\a.msi"});
    EXPECT_THAT(findings.failedRemovals, ElementsAre(L"Removal of C:\\a.msi failed with error=1603"));
}

TEST(RunLogTest, HasRecordsThatSayNothingToWhoWatches) {
    EXPECT_TRUE(IsNoise({.message = L"Exception in CKestruneApp::InitInstance error code = 2"}));
    EXPECT_TRUE(IsNoise({.message = L"<OEM>Testwerk</OEM>"}));
    EXPECT_FALSE(IsNoise({.message = L"Exception in CKestruneApp::InitInstance error code = 5"}));
    EXPECT_FALSE(IsNoise({.message = L"Installing Applications"}));
    EXPECT_FALSE(IsNoise({.message = std::wstring(400, L'x')}));
    EXPECT_TRUE(IsNoise({.message = std::wstring(401, L'x')}));
}

}  // namespace
}  // namespace rollout
