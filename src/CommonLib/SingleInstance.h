// How a running copy of the wizard is known.
#pragma once

// The mutex that exists in a session as long as a copy runs in it.
inline constexpr wchar_t singleInstanceName[] = L"{BDC7F909-8703-4CB7-B19E-E64710BB1F1E}-kestrune";
