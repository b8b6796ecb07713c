#include <windows.h>

#include "CommonLib/PackageLibraries.h"
#include "standins/Sondrix/DeviceFinder.h"
#include "standins/network/Recall.h"
#include "standins/network/Shielded.h"

namespace {

using discovery::CopyOut;
using discovery::Shielded;
using discovery::TextOf;

sondrix::DeviceFinder& Finder() {
    static sondrix::DeviceFinder finder;
    return finder;
}

}  // namespace

void Initialize() {
    Finder().Begin();
}

void Uninitialize() {
    Finder().End();
}

std::uint32_t DiscoverW(const wchar_t* searchDocument) {
    return Shielded([&] { return Finder().Discover(TextOf(searchDocument)); });
}

std::uint32_t EnumerateW(wchar_t* buffer, std::uint32_t capacity, std::uint32_t* required,
                         const wchar_t* enumerationDocument) {
    return Shielded(
        [&] { return CopyOut(Finder().List(TextOf(enumerationDocument)), buffer, capacity, required); });
}

std::uint32_t RecallW(const wchar_t* address, wchar_t* buffer, std::uint32_t capacity,
                      std::uint32_t* required) {
    return Shielded([&]() -> std::uint32_t {
        const std::optional<std::wstring> document = Finder().Recall(TextOf(address));
        if (!document) return ERROR_NOT_FOUND;
        return CopyOut(*document + L'\0', buffer, capacity, required);
    });
}
