// The copy of this program that asks the package's library.
#pragma once

#include "tools/Rollout/Options.h"

namespace rollout {

// Answers the questions of Inquiry.h from the standard input on the standard output, until the input ends.
// Returns 0.
int AnswerQuestions(const Options& options);

}  // namespace rollout
