#include "discovery/DeviceDocuments.h"
#include "discovery/DriverMatch.h"
#include "settings/TagDocument.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

// The first document with that address, found by a walk through all of them.
std::size_t FirstAt(const std::vector<std::wstring>& documents, std::wstring_view address) {
    std::size_t place = 0;
    while (place < documents.size() && TagDocument::ValueOf(documents[place], L"IPADDRESS") != address)
        ++place;
    return place;
}

// The reply taken apart entry by entry.
void ApplyPlainly(std::wstring_view reply, std::vector<std::wstring>& documents) {
    for (std::size_t end = reply.find(L';'); end != std::wstring_view::npos; end = reply.find(L';')) {
        const std::wstring_view entry = reply.substr(0, end);
        reply.remove_prefix(end + 1);
        const std::size_t colon = entry.find(L':');
        if (colon == std::wstring_view::npos) continue;
        const std::size_t place = FirstAt(documents, entry.substr(0, colon));
        if (place == documents.size()) continue;
        TagDocument::SetElement(documents[place], L"COLORTYPE", entry.substr(colon + 1));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = PartsOf(data, size, 2);
    std::vector<std::wstring> documents = SplitEnumeration(parts[1]);
    for (const std::wstring& document : documents) {
        Require(!document.empty() && document.find(L';') == std::wstring::npos);
    }
    std::vector<std::wstring> plain = documents;
    DeviceIndex index(documents);
    ApplyColours(parts[0], index);
    ApplyPlainly(parts[0], plain);
    Require(documents == plain);
    for (const std::wstring& document : documents) IsKept(ReadDevice(document), parts[0]);
    OverridingDriver(parts[1], parts[0]);
    return 0;
}
