// The boxes that come up in a silent run, and the answers that a cautious administrator would give: nobody's
// program is closed, nothing is confirmed, and what only wants to be read is taken note of. Functions of
// their arguments, for any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/Rollout/Options.h"
#include "tools/Rollout/PackageEntry.h"

namespace rollout {

enum class QuestionKind {
    FilesInUse,
    ClosablePrograms,
    Failure,
    InstallerBusy,
    NoPermission,
    DiskFull,
    OtherCopy,
    Unknown
};

// Whoever has the files open may be done with them in a moment.
inline constexpr int triesForFilesInUse = 2;

// A box on the screen.
struct Box {
    std::wstring title;
    std::wstring text;
    // The ids of its buttons that can be pressed.
    std::vector<int> buttons;
};

struct AskedQuestion {
    QuestionKind kind = QuestionKind::Unknown;
    std::wstring title;
    std::wstring text;
    // The id of the button; 0 if the box has none that could be pressed.
    int answer = 0;
};

QuestionKind KindOf(const Box& box, const BoxTexts& texts);

// Returns the id of the button to press, 0 if there is none; askedBefore counts the questions of this kind
// that were answered in this run.
int AnswerTo(QuestionKind kind, const std::vector<int>& buttons, int askedBefore, QuestionPolicy policy);

// Returns the words for the kind and for a button, as reports hold them.
std::string_view NameOf(QuestionKind kind);
std::string_view NameOfAnswer(int button);

}  // namespace rollout
