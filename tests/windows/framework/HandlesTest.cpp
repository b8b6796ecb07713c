#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "framework/Handles.h"

namespace {

std::vector<int> closed;

struct NumberKind {
    using Handle = int;
    static int invalid() noexcept { return -1; }
    static void close(int number) {
        closed.push_back(number);
        SetLastError(ERROR_GEN_FAILURE);
    }
};
using Number = HandleOwner<NumberKind>;

class HandlesTest : public testing::Test {
protected:
    HandlesTest() { closed.clear(); }
};

TEST_F(HandlesTest, ClosesAtTheEndOfItsLife) {
    { const Number number(5); }
    EXPECT_EQ(closed, std::vector<int>{5});
}

TEST_F(HandlesTest, NeverClosesTheInvalidValue) {
    {
        const Number number;
        EXPECT_FALSE(number);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(HandlesTest, TakesZeroForAHandleWhereItIsOne) {
    { EXPECT_TRUE(Number(0)); }
    EXPECT_EQ(closed, std::vector<int>{0});
}

TEST_F(HandlesTest, KeepsTheLastErrorWhenItCloses) {
    SetLastError(ERROR_ACCESS_DENIED);
    { const Number number(5); }
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(HandlesTest, HandsTheHandleOn) {
    Number first(5);
    const Number second(std::move(first));
    // NOLINTNEXTLINE(bugprone-use-after-move): the owner is empty then.
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), 5);
    EXPECT_TRUE(closed.empty());
}

TEST_F(HandlesTest, ClosesWhatItHeldBefore) {
    Number number(5);
    number = Number(6);
    EXPECT_EQ(closed, std::vector<int>{5});
    number.reset(7);
    EXPECT_EQ(closed, (std::vector<int>{5, 6}));
    *number.put() = 8;
    EXPECT_EQ(closed, (std::vector<int>{5, 6, 7}));
    EXPECT_EQ(number.release(), 8);
    number.reset();
    EXPECT_EQ(closed, (std::vector<int>{5, 6, 7}));
}

TEST_F(HandlesTest, SurvivesBeingGivenToItself) {
    Number number(5);
    Number& same = number;
    number = std::move(same);
    EXPECT_EQ(number.get(), 5);
    EXPECT_TRUE(closed.empty());
}

TEST(SelectedObjectTest, PutsTheFormerObjectBack) {
    const MemoryDc context(CreateCompatibleDC(nullptr));
    const HGDIOBJ former = GetCurrentObject(context.get(), OBJ_PEN);
    const Pen pen(CreatePen(PS_SOLID, 1, 0));
    {
        const SelectedObject selected(context.get(), pen.get());
        EXPECT_EQ(GetCurrentObject(context.get(), OBJ_PEN), pen.get());
    }
    EXPECT_EQ(GetCurrentObject(context.get(), OBJ_PEN), former);
}

TEST(FindExportTest, GivesNullForANameThatTheLibraryLacks) {
    using Function = void (*)();
    EXPECT_NE(FindExport<Function>(GetModuleHandleW(L"kernel32.dll"), "GetTickCount"), nullptr);
    EXPECT_EQ(FindExport<Function>(GetModuleHandleW(L"kernel32.dll"), "NoSuchFunction"), nullptr);
}

}  // namespace
