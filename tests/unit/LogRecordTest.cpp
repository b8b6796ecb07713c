#include <gtest/gtest.h>

#include "CommonLib/LogRecord.h"

namespace {

constexpr LogTime moment = {.year = 2026, .month = 3, .day = 1, .hour = 9, .minute = 5, .second = 7};
constexpr LogOrigin origin = {.processId = 0x1A2C, .threadId = 0x2F0};

TEST(LogRecordTest, HasTheColumnsOfTheBasicLog) {
    EXPECT_EQ(FormatBasicRecord(L"ERROR", moment, L"Add Eula dialog failed."),
              L"ERROR    2026/03/01-09:05:07  Add Eula dialog failed.\r\n");
}

TEST(LogRecordTest, HasTheColumnsOfTheAdvancedLog) {
    EXPECT_EQ(
        FormatAdvancedRecord(L"ERROR", moment, origin, L"Kestrune", L"Add Eula dialog failed."),
        L"ERROR    2026/03/01-09:05:07  pid=1a2c  tid=2f0   Kestrune         Add Eula dialog failed.\r\n");
}

TEST(LogRecordTest, HasSevenBlanksForAnEmptyLevel) {
    EXPECT_EQ(FormatBasicRecord(L"", moment, L"x"), L"         2026/03/01-09:05:07  x\r\n");
    EXPECT_EQ(FormatBasicRecord(L"SUCCESS", moment, L"x"), L"SUCCESS  2026/03/01-09:05:07  x\r\n");
}

TEST(LogRecordTest, ShiftsItsColumnsForLongerTexts) {
    EXPECT_EQ(FormatAdvancedRecord(L"IMPORTANT", moment, {.processId = 0x12345678, .threadId = 0},
                                   L"AVeryLongApplication", L""),
              L"IMPORTANT  2026/03/01-09:05:07  pid=12345678  tid=0     AVeryLongApplication  \r\n");
}

TEST(LogRecordTest, KeepsTheMessageAsItIs) {
    EXPECT_EQ(FormatBasicRecord(L"", moment, L"a\nb\t\u4E2D"),
              L"         2026/03/01-09:05:07  a\nb\t\u4E2D\r\n");
}

TEST(LogRecordTest, PadsTheYearToFourDigits) {
    const LogTime early = {.year = 7, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};
    EXPECT_EQ(FormatBasicRecord(L"", early, L""), L"         0007/12/31-23:59:59  \r\n");
}

}  // namespace
