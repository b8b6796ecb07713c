// The exports of the scripted Sondrix.dll.

#include <algorithm>
#include <cstdint>
#include <string>

#include "CommonLib/PackageLibraries.h"
#include "tests/fakes/LibraryFolder.h"
#include "tests/fakes/Network/Network.h"

extern "C" {

void Initialize() {
    Network().Record({L"Initialize"});
}

void Uninitialize() {
    Network().Record({L"Uninitialize"});
}

std::uint32_t DiscoverW(const wchar_t* searchDocument) {
    Network().Record({L"DiscoverW", Field(L"document", searchDocument)});
    const NetworkAnswer& answer = Network().NextRun().discover;
    Network().Wait(answer);
    return answer.code;
}

std::uint32_t EnumerateW(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                         const wchar_t* enumerationDocument) {
    Network().Record({L"EnumerateW", Field(L"capacity", capacity), Field(L"required", *required),
                      Field(L"document", enumerationDocument)});
    const NetworkRun& run = Network().CurrentRun();
    Network().Wait(run.enumerate);
    const auto needed = static_cast<std::uint32_t>(run.listing.size());
    *required = run.enumerate.required.value_or(needed);
    if (run.enumerate.again || capacity < needed) return bufferTooSmall;
    // What follows the listing is left as the caller made it.
    std::copy(run.listing.begin(), run.listing.end(), buffer);
    return run.enumerate.code;
}
}
