// What a run would do with a package, for those who are told before it does. Functions of their arguments,
// for any thread.
#pragma once

#include <string_view>

#include "catalogue/MSI_APP.h"

enum class Intention { LeaveNewer, DependentsOnly, InstallAgain, MinorUpgrade, PassOver, Upgrade, Install };

// Returns what the run would do with the record, by its state when the catalogue was built.
Intention IntentionFor(const MSI_APP& record);

// Returns the words for it, such as "pass over, it is up to date".
std::wstring_view WordsFor(Intention intention);
