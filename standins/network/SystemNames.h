// What this system can do with names.
#pragma once

namespace discovery {

// True from the version of Windows 10 on whose resolver asks neighbours for names that end in "local".
bool DoesSystemResolveLocalNames();

}  // namespace discovery
