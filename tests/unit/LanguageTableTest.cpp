#include <gtest/gtest.h>

#include "settings/LanguageTable.h"

namespace {

struct LanguageCase {
    unsigned primaryId;
    unsigned sublanguage;
    std::wstring code;
};

class LanguageTableTest : public testing::TestWithParam<LanguageCase> {};

TEST_P(LanguageTableTest, MapsTheLanguageToItsCode) {
    const auto& language = GetParam();
    EXPECT_EQ(MapLanguage(language.primaryId, language.sublanguage << 10U | language.primaryId),
              language.code);
}

const LanguageCase languages[] = {
    {1, 1, L"ar"},       {4, 1, L"zh_tw"},  {4, 2, L"zh_cn"},     {4, 3, L"zh_tw"},    {4, 4, L"zh_cn"},
    {4, 5, L"zh_tw"},    {5, 1, L"cs"},     {6, 1, L"da"},        {7, 1, L"de"},       {7, 3, L"de"},
    {8, 1, L"el"},       {9, 1, L"en"},     {10, 1, L"es"},       {11, 1, L"fi"},      {12, 1, L"fr"},
    {14, 1, L"hu"},      {16, 1, L"it"},    {17, 1, L"ja"},       {18, 1, L"ko"},      {19, 1, L"nl"},
    {20, 1, L"nb"},      {20, 2, L"nb"},    {21, 1, L"pl"},       {22, 1, L"pt_br"},   {22, 2, L"pt_br"},
    {24, 1, L"ro"},      {25, 1, L"ru"},    {26, 1, L"hr"},       {26, 2, L"sr_Latn"}, {26, 3, L"en"},
    {26, 9, L"sr_Latn"}, {26, 10, L"en"},   {27, 1, L"sk"},       {29, 1, L"sv"},      {30, 1, L"th"},
    {31, 1, L"tr"},      {33, 1, L"id_ID"}, {36, 1, L"sl"},       {42, 1, L"vi"},      {0, 0, L"en"},
    {2, 1, L"en"},       {23, 1, L"en"},    {0x3FF, 0x3F, L"en"},
};

INSTANTIATE_TEST_SUITE_P(Languages, LanguageTableTest, testing::ValuesIn(languages));

TEST(LanguageFileNameTest, IsTheCodeAndACommonEnding) {
    EXPECT_EQ(LanguageFileName(L"zh_cn"), L"zh_cn_strings.xml");
    EXPECT_EQ(LanguageFileName(L"xx"), L"xx_strings.xml");
}

}  // namespace
