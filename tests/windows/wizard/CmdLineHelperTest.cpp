#include <gtest/gtest.h>

#include "wizard/CmdLineHelper.h"

namespace {

using Option = CmdLineHelper::Option;

TEST(CmdLineHelperTest, KnowsItsOptionsByTheirNames) {
    CmdLineHelper options;
    for (const wchar_t* const parameter : {L"lang=de", L"p=IP_7", L"ip=10.0.0.7", L"pkgdir=C:\\x", L"q=1"})
        options.ParseParam(parameter, true, false);
    EXPECT_EQ(options.GetValue(Option::Language), L"de");
    EXPECT_EQ(options.GetValue(Option::Port), L"IP_7");
    EXPECT_EQ(options.GetValue(Option::Address), L"10.0.0.7");
    EXPECT_EQ(options.GetValue(Option::PackageDirectory), L"C:\\x");
    EXPECT_EQ(options.GetValue(Option::None), L"");
}

TEST(CmdLineHelperTest, KnowsTheOptionOfTheLastParameter) {
    CmdLineHelper options;
    options.ParseParam(L"p=IP_7", true, false);
    EXPECT_EQ(options.GetCurrent(), Option::Port);
    options.ParseParam(L"p=IP_7", false, true);
    EXPECT_EQ(options.GetCurrent(), Option::None);
}

}  // namespace
