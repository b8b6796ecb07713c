#include <gtest/gtest.h>

#include "resources/resource.h"
#include "tools/Rollout/Questions.h"

namespace rollout {
namespace {

const BoxTexts boxTexts{.failure = L"Wrong",
                        .installerBusy = L"Busy",
                        .noPermission = L"No",
                        .diskFull = L"Full",
                        .otherCopy = L"Twice"};

TEST(QuestionsTest, AreKnownByTheirTexts) {
    const auto kind = [](const wchar_t* text) { return KindOf({.text = text, .buttons = {2}}, boxTexts); };
    EXPECT_EQ(kind(L"Wrong"), QuestionKind::Failure);
    EXPECT_EQ(kind(L"Busy"), QuestionKind::InstallerBusy);
    EXPECT_EQ(kind(L"No"), QuestionKind::NoPermission);
    EXPECT_EQ(kind(L"Full"), QuestionKind::DiskFull);
    EXPECT_EQ(kind(L"Twice"), QuestionKind::OtherCopy);
    EXPECT_EQ(kind(L"What?"), QuestionKind::Unknown);
}

// A package may lack a text, and a box may have none.
TEST(QuestionsTest, WithoutATextAreNotTakenForOthers) {
    EXPECT_EQ(KindOf({.buttons = {2}}, {}), QuestionKind::Unknown);
}

TEST(QuestionsTest, AboutFilesAreKnownByTheirButtons) {
    EXPECT_EQ(KindOf({.text = L"Busy", .buttons = {2, IDC_FILES_IN_USE_RETRY}}, boxTexts),
              QuestionKind::FilesInUse);
    EXPECT_EQ(KindOf({.buttons = {IDC_CLOSABLE_FILES_RESTART, IDC_CLOSABLE_FILES_DO_NOT_CLOSE, 1}}, boxTexts),
              QuestionKind::ClosablePrograms);
}

TEST(QuestionsTest, AboutFilesInUseAreTriedTwiceAndThenCancelled) {
    const std::vector<int> buttons = {2, IDC_FILES_IN_USE_RETRY};
    const auto answer = [&](int askedBefore, QuestionPolicy policy) {
        return AnswerTo(QuestionKind::FilesInUse, buttons, askedBefore, policy);
    };
    EXPECT_EQ(answer(0, QuestionPolicy::Answer), IDC_FILES_IN_USE_RETRY);
    EXPECT_EQ(answer(1, QuestionPolicy::Answer), IDC_FILES_IN_USE_RETRY);
    EXPECT_EQ(answer(2, QuestionPolicy::Answer), 2);
    EXPECT_EQ(answer(0, QuestionPolicy::Fail), 2);
}

TEST(QuestionsTest, AboutProgramsLeaveThemOpen) {
    EXPECT_EQ(
        AnswerTo(QuestionKind::ClosablePrograms, {IDC_CLOSABLE_FILES_RESTART, 1}, 0, QuestionPolicy::Answer),
        2);
}

struct CarefulCase {
    std::vector<int> buttons;
    int answer;
};

class CarefulAnswerTest : public testing::TestWithParam<CarefulCase> {};

TEST_P(CarefulAnswerTest, ConfirmsNothing) {
    EXPECT_EQ(AnswerTo(QuestionKind::Unknown, GetParam().buttons, 0, QuestionPolicy::Answer),
              GetParam().answer);
}

// Yes and No, OK and Cancel, Abort, Retry and Ignore, OK under either id, a button that nobody knows, and
// none.
INSTANTIATE_TEST_SUITE_P(Buttons, CarefulAnswerTest,
                         testing::Values(CarefulCase{{6, 7}, 7}, CarefulCase{{1, 2}, 2},
                                         CarefulCase{{3, 4, 5}, 3}, CarefulCase{{1}, 1}, CarefulCase{{2}, 2},
                                         CarefulCase{{6, 7, 2}, 7}, CarefulCase{{1234}, 1234},
                                         CarefulCase{{}, 0}));

TEST(QuestionsTest, HaveNamesOfTheirOwn) {
    EXPECT_EQ(NameOf(QuestionKind::FilesInUse), "filesInUse");
    EXPECT_EQ(NameOf(QuestionKind::Unknown), "unknown");
    EXPECT_EQ(NameOfAnswer(IDC_FILES_IN_USE_RETRY), "retry");
    EXPECT_EQ(NameOfAnswer(7), "no");
    EXPECT_EQ(NameOfAnswer(0), "none");
}

}  // namespace
}  // namespace rollout
