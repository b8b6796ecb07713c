// The pages of the wizard, in their order.
#pragma once

#include "app/Collaborators.h"
#include "wizard/Chain.h"

// Returns the chain of this run: which pages there are, the service of each, when each is hidden, and what
// ends the walk. Its functions refer to the collaborators.
Chain MakeChain(const Collaborators& shared);
