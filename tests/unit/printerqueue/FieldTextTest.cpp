#include <gmock/gmock.h>

#include "standins/PrinterQueue/FieldText.h"

using printerqueue::ReadField;
using printerqueue::ReadFields;
using printerqueue::WriteField;
using testing::ElementsAre;

namespace {

class FieldTextValueTest : public testing::TestWithParam<std::wstring> {};

TEST_P(FieldTextValueTest, ComesBackWhateverItHolds) {
    const std::wstring text = WriteField(L"FIRST", L"x") + WriteField(L"NAME", GetParam());
    EXPECT_EQ(ReadField(text, L"NAME"), GetParam());
    EXPECT_EQ(ReadField(WriteField(L"OUTER", text), L"OUTER"), text);
}

INSTANTIATE_TEST_SUITE_P(Values, FieldTextValueTest,
                         testing::Values(L"", L"plain", L"</NAME>", L"<NAME>", L"100 %", L"%l", L"%p%",
                                         L"a<b>c", L"19\" gr\u00fc\u00dfe \u65e5\u672c, C:\\x"));

TEST(FieldTextTest, HasTheEmptyValueForAFieldThatIsNotThere) {
    EXPECT_EQ(ReadField(L"<A>1</A>", L"B"), L"");
    EXPECT_EQ(ReadField(L"", L"B"), L"");
}

TEST(FieldTextTest, ListsFieldsOfOneNameInOrder) {
    EXPECT_THAT(ReadFields(WriteField(L"A", L"</A>") + WriteField(L"B", L"x") + WriteField(L"A", L"2"), L"A"),
                ElementsAre(L"</A>", L"2"));
}

}  // namespace
