// The languages of users, as a program meets them that is started in one.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "CommonLib/Files.h"

namespace {

struct UserLanguage {
    std::string locale;
    // The code of the language, and 1 for a language that reads from right to left.
    std::string answer;
};

// What the companion told in each language; the script that runs the tests has asked it.
std::map<std::string, std::string> Answers() {
    std::map<std::string, std::string> answers;
    std::ifstream file(std::filesystem::path(GetExeDirectory()) / L"UserLanguages.txt");
    for (std::string locale, code, direction; file >> locale >> code >> direction;) {
        answers[locale] = code + " " + direction;
    }
    return answers;
}

class UserLanguageTest : public testing::TestWithParam<UserLanguage> {};

TEST_P(UserLanguageTest, HasItsCodeAndDirection) {
    const auto answers = Answers();
    if (answers.empty()) GTEST_SKIP() << "nobody has asked in other languages";
    const auto found = answers.find(GetParam().locale);
    ASSERT_NE(found, answers.end());
    EXPECT_EQ(found->second, GetParam().answer);
}

const UserLanguage languages[] = {
    {"de_DE.UTF-8", "de 0"},    {"en_US.UTF-8", "en 0"},    {"ar_SA.UTF-8", "ar 1"},
    {"he_IL.UTF-8", "en 1"},    {"pt_BR.UTF-8", "pt_br 0"}, {"pt_PT.UTF-8", "pt_br 0"},
    {"zh_CN.UTF-8", "zh_cn 0"}, {"zh_TW.UTF-8", "zh_tw 0"}, {"zh_HK.UTF-8", "zh_tw 0"},
    {"zh-SG", "zh_cn 0"},       {"ja_JP.UTF-8", "ja 0"},    {"id_ID.UTF-8", "id_ID 0"},
    {"nb_NO.UTF-8", "nb 0"},    {"nn_NO.UTF-8", "nb 0"},    {"sr-Latn-RS", "sr_Latn 0"},
    {"sr-Cyrl-RS", "en 0"},     {"hr_HR.UTF-8", "hr 0"},    {"uk_UA.UTF-8", "en 0"},
};

INSTANTIATE_TEST_SUITE_P(Locales, UserLanguageTest, testing::ValuesIn(languages));

}  // namespace
