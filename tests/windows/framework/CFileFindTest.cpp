#include <gmock/gmock.h>

#include "framework/CFileFind.h"
#include "tests/windows/world/ScratchFolder.h"

namespace {

using testing::UnorderedElementsAre;

TEST(CFileFindTest, CountsTheEntryOfTheCallThatSaidThereIsNoMore) {
    const ScratchFolder folder;
    WriteBytes(folder / L"only.msi");
    CFileFind finder;
    ASSERT_TRUE(finder.FindFile(folder / L"*.msi"));
    EXPECT_FALSE(finder.FindNextFile());
    EXPECT_EQ(finder.GetFileName(), L"only.msi");
    EXPECT_EQ(finder.GetFilePath(), folder / L"only.msi");
}

TEST(CFileFindTest, WalksEveryEntryWithTheDots) {
    const ScratchFolder folder;
    WriteBytes(folder / L"a");
    WriteBytes(folder / L"b");
    CFileFind finder;
    std::vector<std::wstring> names;
    int dots = 0;
    for (bool more = finder.FindFile(folder / L"*"); more;) {
        more = finder.FindNextFile();
        dots += finder.IsDots() ? 1 : 0;
        if (!finder.IsDots()) names.push_back(finder.GetFileName());
    }
    EXPECT_EQ(dots, 2);
    EXPECT_THAT(names, UnorderedElementsAre(L"a", L"b"));
}

TEST(CFileFindTest, FindsNothingWhereNothingFits) {
    const ScratchFolder folder;
    CFileFind finder;
    EXPECT_FALSE(finder.FindFile(folder / L"*.msi"));
    EXPECT_FALSE(finder.FindNextFile());
}

TEST(CFileFindTest, KeepsTheFolderAsItWasWritten) {
    const ScratchFolder folder;
    WriteBytes(folder / L"sub\\a.msi");
    CFileFind finder;
    ASSERT_TRUE(finder.FindFile(folder / L"sub\\..\\sub\\*.msi"));
    finder.FindNextFile();
    EXPECT_EQ(finder.GetFilePath(), folder / L"sub\\..\\sub\\a.msi");
}

}  // namespace
