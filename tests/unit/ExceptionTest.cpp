#include <gtest/gtest.h>

#include "CommonLib/Exception.h"

namespace {

TEST(ExceptionTest, HasItsMessageAndCode) {
    const Exception failure(L"it failed", -5, L"CommonLib/Mutex", 12);
    EXPECT_EQ(failure.getMessage(), L"it failed");
    EXPECT_EQ(failure.getCode(), -5);
    EXPECT_EQ(failure.getCodeText(), L"-5");
}

TEST(ExceptionTest, HasNoCodeTextForCodeZero) {
    EXPECT_EQ(Exception(L"it failed").getCodeText(), L"");
}

TEST(ExceptionTest, TellsPlaceMessageAndCode) {
    EXPECT_EQ(Exception(L"it failed", 5, L"CommonLib/Mutex", 12).getFullText(),
              L"file:CommonLib/Mutex:12: it failed: 5");
    EXPECT_EQ(Exception(L"it failed", 0, L"CommonLib/Mutex", 12).getFullText(),
              L"file:CommonLib/Mutex:12: it failed");
}

TEST(ExceptionTest, BeginsWithTheMessageWhenThereIsNoFile) {
    EXPECT_EQ(Exception(L"it failed", 5, L"", 12).getFullText(), L"it failed: 5");
    EXPECT_EQ(Exception(L"it failed").getFullText(), L"it failed");
}

class OtherException : public Exception {
public:
    using Exception::Exception;
    std::wstring getCodeText() const override { return L"other"; }
};

TEST(ExceptionTest, AsksADerivedClassForItsCodeText) {
    try {
        throw OtherException(L"it failed", 5);
    } catch (const Exception& failure) {
        EXPECT_EQ(failure.getFullText(), L"it failed: other");
    }
}

}  // namespace
