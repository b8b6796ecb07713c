// Answers the boxes of a run as they come up.
#pragma once

#include <windows.h>

#include <chrono>
#include <map>
#include <vector>

#include "tools/Rollout/BoxWindows.h"
#include "tools/Rollout/Questions.h"

namespace rollout {

class BoxKeeper {
public:
    BoxKeeper(BoxTexts boxTexts, QuestionPolicy questionPolicy);

    // Answers what the process has on the screen. Returns the questions that were answered now.
    std::vector<AskedQuestion> Look(DWORD processId);
    // All of them so far, in their order.
    const std::vector<AskedQuestion>& Questions() const { return questions; }

private:
    using Clock = std::chrono::steady_clock;
    struct Watched {
        Clock::time_point since;
        bool isAnswered = false;
    };

    AskedQuestion Answer(const BoxOnScreen& found);

    BoxTexts texts;
    QuestionPolicy policy;
    std::map<HWND, Watched> watched;
    std::vector<AskedQuestion> questions;
};

}  // namespace rollout
