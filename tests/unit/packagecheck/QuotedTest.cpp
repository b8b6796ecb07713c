#include <gtest/gtest.h>

#include "tools/PackageCheck/Quoted.h"

namespace packagecheck {
namespace {

TEST(QuotedTest, WritesOutWhatATerminalWouldObey) {
    EXPECT_EQ(Quoted(L"a\x1b[31m\n\u202Eb"), "\"a\\u001B[31m\\u000A\\u202Eb\"");
}

TEST(QuotedTest, CutsALongText) {
    EXPECT_EQ(Quoted(std::wstring(80, L'x')), "\"" + std::string(80, 'x') + "\"");
    EXPECT_EQ(Quoted(std::wstring(81, L'x')), "\"" + std::string(80, 'x') + "...\"");
}

}  // namespace
}  // namespace packagecheck
