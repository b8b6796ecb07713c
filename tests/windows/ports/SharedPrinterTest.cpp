#include <gtest/gtest.h>

#include "ports/SharedPrinter.h"
#include "tests/windows/world/FakeShare.h"

namespace {

constexpr wchar_t printer[] = L"\\\\server\\printer";

TEST(SharedPrinterTest, IsWhatTheNetworkKnowsByThatPath) {
    const FakeShare share({.remoteName = printer});
    EXPECT_TRUE(IsSharedPrinter(printer));
    EXPECT_EQ(share.AskedName(), printer);
    EXPECT_EQ(share.Question().dwScope, 2U);
    EXPECT_EQ(share.Question().dwType, 0U);
    EXPECT_EQ(share.Question().lpProvider, nullptr);
    EXPECT_EQ(share.Room(), 261U);
}

struct ShareCase {
    std::wstring name;
    FakeShare::Answer answer;
};

class NoSharedPrinterTest : public testing::TestWithParam<ShareCase> {};

TEST_P(NoSharedPrinterTest, IsAnyOtherAnswer) {
    const FakeShare share(GetParam().answer);
    EXPECT_FALSE(IsSharedPrinter(printer));
}

const ShareCase answers[] = {
    {L"a folder", {.type = RESOURCETYPE_DISK, .remoteName = printer}},
    {L"another case", {.remoteName = L"\\\\SERVER\\printer"}},
    {L"a longer name", {.remoteName = L"\\\\server\\printer2"}},
    {L"a shorter name", {.remoteName = L"\\\\server\\print"}},
    {L"an unknown share", {.code = ERROR_BAD_NET_NAME, .remoteName = printer}},
    {L"no network", {.code = ERROR_NO_NETWORK, .remoteName = printer}},
    {L"a system without the function", {.remoteName = printer, .isMissing = true}},
};

INSTANTIATE_TEST_SUITE_P(Answers, NoSharedPrinterTest, testing::ValuesIn(answers));

TEST(SharedPrinterTest, IsNotAskedForWhereThePathNamesNoShare) {
    for (const wchar_t* path :
         {L"", L"printer", L"\\\\server", L"\\\\server\\printer\\tray", L"C:\\printer"}) {
        const FakeShare share({.remoteName = path});
        EXPECT_FALSE(IsSharedPrinter(path)) << path;
        EXPECT_FALSE(share.WasAsked()) << path;
    }
}

// The record takes 48 bytes of the 261, so 105 characters and the end of the text fit after it.
TEST(SharedPrinterTest, HasAnAnswerOfAtMost261Bytes) {
    const std::wstring longest = L"\\\\server\\" + std::wstring(96, L'p');
    {
        const FakeShare share({.remoteName = longest});
        EXPECT_TRUE(IsSharedPrinter(longest));
    }
    const FakeShare share({.remoteName = longest + L"p"});
    EXPECT_FALSE(IsSharedPrinter(longest + L"p"));
    EXPECT_TRUE(share.WasAsked());
}

HMODULE WINAPI LoadNothing(LPCWSTR) {
    return nullptr;
}

TEST(SharedPrinterTest, DoesNotExistWithoutTheNetworkLibrary) {
    const FakeShare share({.remoteName = printer});
    const PatchedImport loading("LoadLibraryW", &LoadNothing);
    EXPECT_FALSE(IsSharedPrinter(printer));
    EXPECT_FALSE(share.WasAsked());
}

int freed = 0;

BOOL WINAPI CountFreed(HMODULE) {
    ++freed;
    return TRUE;
}

TEST(SharedPrinterTest, FreesTheLibraryOnEveryWay) {
    const PatchedImport freeing("FreeLibrary", &CountFreed);
    freed = 0;
    for (const DWORD code : {DWORD{NO_ERROR}, DWORD{ERROR_BAD_NET_NAME}}) {
        const FakeShare share({.code = code, .remoteName = printer});
        IsSharedPrinter(printer);
    }
    EXPECT_EQ(freed, 2);
}

}  // namespace
