#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/unit/packagecheck/TemporaryFolder.h"
#include "tools/PackageCheck/Checks.h"
#include "tools/PackageCheck/FolderTree.h"
#include "tools/PackageCheck/Program.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class NewPackageTest : public testing::Test {
protected:
    int Make(const std::string& path) {
        return packagecheck::RunPackageCheck({"--new", path}, {.out = out, .err = err});
    }

    // The codes of both packages, each once.
    static std::set<std::string> CodesIn(const TemporaryFolder& folder, const std::string& path) {
        static const std::regex code(
            R"(\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\})");
        const std::string text =
            folder.Read(path + "/sources/Driver.wxs") + folder.Read(path + "/sources/Application.wxs");
        return {std::sregex_token_iterator(text.begin(), text.end(), code), std::sregex_token_iterator()};
    }

    TemporaryFolder folder;
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(NewPackageTest, LacksNothingButWhatIsBuilt) {
    ASSERT_EQ(Make(folder.Path() + "/first"), 0) << err.str();
    const packagecheck::FolderTree tree(std::filesystem::path(folder.Path()) / "first" / "package");
    std::set<std::string_view> ids;
    for (const auto& finding : packagecheck::CheckPackage(packagecheck::Package(tree)))
        ids.insert(finding.rule->id);
    EXPECT_THAT(ids, testing::UnorderedElementsAre("msi-none", "library-missing", "program-missing",
                                                   "picture-missing", "search-library-missing",
                                                   "default-driver-unknown", "driver-type-unused"));
}

TEST_F(NewPackageTest, HasCodesOfItsOwn) {
    ASSERT_EQ(Make(folder.Path() + "/first"), 0);
    ASSERT_EQ(Make(folder.Path() + "/second"), 0);
    std::set<std::string> codes = CodesIn(folder, "first");
    EXPECT_EQ(codes.size(), 6U);
    codes.merge(CodesIn(folder, "second"));
    EXPECT_EQ(codes.size(), 12U);
}

// Of the bits of a code six say its kind, and in so many codes each of the others is set here and not there.
TEST_F(NewPackageTest, LeavesTheCodesToChance) {
    std::set<std::string> codes;
    for (int count = 0; count < 12; ++count) {
        const std::string path = "number" + std::to_string(count);
        ASSERT_EQ(Make(folder.Path() + "/" + path), 0);
        codes.merge(CodesIn(folder, path));
    }
    std::array<int, 128> set{};
    for (const std::string& code : codes) {
        // No part of it is another one again.
        EXPECT_NE(code.substr(21, 3) + code.substr(25, 4), code.substr(30, 7));
        EXPECT_NE(code.substr(11, 3) + code.substr(16, 3), code.substr(21, 3) + code.substr(26, 3));
        std::size_t bit = 0;
        for (const char digit : code) {
            if (std::isxdigit(static_cast<unsigned char>(digit)) == 0) continue;
            const int value = std::stoi(std::string(1, digit), nullptr, 16);
            for (int mask = 8; mask != 0; mask /= 2) set.at(bit++) += (value & mask) != 0 ? 1 : 0;
        }
    }
    EXPECT_EQ(std::ranges::count(set, 0) + std::ranges::count(set, static_cast<int>(codes.size())), 6);
}

TEST_F(NewPackageTest, HasItsLicencesInTheirCodePage) {
    ASSERT_EQ(Make(folder.Path()), 0);
    EXPECT_THAT(folder.Read("package/Notices/EULA/EULA_de.txt"),
                HasSubstr("eine Datei f\xFCr jede Sprache.\r\n"));
}

TEST_F(NewPackageTest, HasTheTextsOfTheSample) {
    ASSERT_EQ(Make(folder.Path()), 0);
    EXPECT_THAT(folder.Read("package/Setup/res/en_strings.xml"),
                HasSubstr("<LANGUAGE_ID>1033</LANGUAGE_ID>"));
    EXPECT_THAT(folder.Read("package/Setup/res/de_strings.xml"),
                HasSubstr("<LANGUAGE_ID>1031</LANGUAGE_ID>"));
}

TEST_F(NewPackageTest, HasAScriptThatCanBeStarted) {
    ASSERT_EQ(Make(folder.Path()), 0);
#ifndef _WIN32
    const auto mode = std::filesystem::status(folder.Path() + "/build.sh").permissions();
    EXPECT_NE(mode & std::filesystem::perms::owner_exec, std::filesystem::perms::none);
#endif
    EXPECT_THAT(folder.Read("build.sh"), testing::StartsWith("#!/usr/bin/env bash\n"));
    EXPECT_THAT(folder.Read("build.sh"), Not(HasSubstr("\r")));
}

TEST_F(NewPackageTest, LeavesAFolderAloneThatHoldsAnything) {
    folder.Write("mine.txt", "mine");
    EXPECT_EQ(Make(folder.Path()), 2);
    EXPECT_THAT(err.str(), HasSubstr("the folder holds something already"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
    EXPECT_EQ(Make(folder.Path() + "/mine.txt"), 2);
    EXPECT_THAT(err.str(), HasSubstr("the folder cannot be made"));
    EXPECT_EQ(folder.Read("mine.txt"), "mine");
}

TEST_F(NewPackageTest, NeedsAFolder) {
    EXPECT_EQ(packagecheck::RunPackageCheck({"--new"}, {.out = out, .err = err}), 2);
    EXPECT_THAT(err.str(), HasSubstr("which folder is it?"));
}

}  // namespace
