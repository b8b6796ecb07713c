#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "CommonLib/Win32Exception.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Win32ExceptionTest, PutsTheSystemsWordsStraightBehindTheCode) {
    const std::wstring text = Win32Exception(L"call", ERROR_ACCESS_DENIED, L"").getCodeText();
    EXPECT_EQ(text, L"Win32(5" + SystemMessage(ERROR_ACCESS_DENIED));
    EXPECT_GT(SystemMessage(ERROR_ACCESS_DENIED).size(), 5U);
    EXPECT_NE(SystemMessage(ERROR_ACCESS_DENIED).front(), L' ');
    EXPECT_THAT(text, Not(HasSubstr(L")")));
}

TEST(Win32ExceptionTest, HasNoCodeTextForNoCode) {
    EXPECT_EQ(Win32Exception(L"call", 0, L"").getCodeText(), L"");
}

TEST(Win32ExceptionTest, StartsItsFullTextWithTheMessageWhereNoFileIsKnown) {
    EXPECT_THAT(Win32Exception(L"call", 5, L"").getFullText(), StartsWith(L"call: Win32(5"));
}

TEST(Win32ExceptionTest, NamesTheLineThatThrew) {
    const int line = __LINE__ + 1;
    const Win32Exception exception(L"call", 0, L"CommonLib/Mutex");
    EXPECT_EQ(exception.getFullText(), L"file:CommonLib/Mutex:" + std::to_wstring(line) + L": call");
}

TEST(Win32ExceptionTest, IsCaughtAsAnException) {
    try {
        throw Win32Exception(L"call", 5, L"");
    } catch (const Exception& exception) {
        EXPECT_THAT(exception.getCodeText(), StartsWith(L"Win32(5"));
        EXPECT_EQ(exception.getCode(), 5);
    }
}

TEST(SystemMessageTest, StandsOnOneLine) {
    for (const DWORD code :
         std::to_array<DWORD>({ERROR_FILE_NOT_FOUND, ERROR_INVALID_HANDLE, ERROR_INSTALL_FAILURE})) {
        EXPECT_THAT(SystemMessage(code), Not(HasSubstr(L"\n")));
        EXPECT_THAT(SystemMessage(code), Not(HasSubstr(L"\r")));
    }
}

TEST(SystemMessageTest, TellsWhyThereIsNone) {
    EXPECT_EQ(SystemMessage(0x2FFFFFFF), L"Error getting message:" + std::to_wstring(ERROR_MR_MID_NOT_FOUND));
}

}  // namespace
