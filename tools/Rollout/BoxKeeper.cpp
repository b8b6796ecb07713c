#include "tools/Rollout/BoxKeeper.h"

#include <algorithm>
#include <utility>

namespace rollout {
namespace {

// Whoever has a file open gets a moment before the next try; a box that stays after its answer is answered
// again.
constexpr std::chrono::seconds pauseForFilesInUse{2};
constexpr std::chrono::seconds pauseForNextAnswer{5};

}  // namespace

BoxKeeper::BoxKeeper(BoxTexts boxTexts, QuestionPolicy questionPolicy)
    : texts(std::move(boxTexts)), policy(questionPolicy) {}

std::vector<AskedQuestion> BoxKeeper::Look(DWORD processId) {
    const auto now = Clock::now();
    const std::vector<BoxOnScreen> boxes = FindBoxes(processId);
    std::erase_if(watched, [&](const auto& entry) {
        return std::ranges::find(boxes, entry.first, &BoxOnScreen::window) == boxes.end();
    });
    std::vector<AskedQuestion> answered;
    for (const BoxOnScreen& found : boxes) {
        Watched& box = watched.try_emplace(found.window, Watched{.since = now}).first->second;
        const bool isPatient = KindOf(found.box, texts) == QuestionKind::FilesInUse;
        const auto pause = isPatient ? pauseForFilesInUse : std::chrono::seconds(0);
        if (box.isAnswered ? now - box.since < pauseForNextAnswer : now - box.since < pause) continue;
        const AskedQuestion question = Answer(found);
        if (!std::exchange(box.isAnswered, true)) answered.push_back(question);
        box.since = now;
    }
    questions.insert(questions.end(), answered.begin(), answered.end());
    return answered;
}

AskedQuestion BoxKeeper::Answer(const BoxOnScreen& found) {
    const QuestionKind kind = KindOf(found.box, texts);
    const auto askedBefore = std::ranges::count(questions, kind, &AskedQuestion::kind);
    const int button = AnswerTo(kind, found.box.buttons, static_cast<int>(askedBefore), policy);
    if (button != 0) PressButton(found.window, button);
    return {.kind = kind, .title = found.box.title, .text = found.box.text, .answer = button};
}

}  // namespace rollout
