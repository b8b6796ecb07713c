#include "discovery/DeviceDocuments.h"

#include <algorithm>

#include "CommonLib/TextUtilities.h"
#include "settings/PackageWords.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

std::vector<std::wstring> SplitEnumeration(std::wstring listed) {
    std::replace(listed.begin(), listed.end(), L'\0', L';');
    std::vector<std::wstring> documents = SplitClosed(listed, L';');
    documents.erase(std::remove(documents.begin(), documents.end(), std::wstring()), documents.end());
    return documents;
}

std::wstring AddressList(const std::vector<std::wstring>& documents) {
    std::wstring list;
    for (const std::wstring& document : documents) {
        list += TagDocument::ValueOf(document, Tag::IPADDRESS) + L";";
    }
    return list;
}

std::wstring EnumerationDocument(std::wstring_view oemByte, std::wstring_view seriesList) {
    std::wstring document = TagDocument::MakeElement(Tag::CPDATTACHED, L"0");
    if (!oemByte.empty()) document += TagDocument::MakeElement(Tag::OEMBYTE, oemByte);
    if (!seriesList.empty()) document += TagDocument::MakeElement(Tag::SERIESSTRID, seriesList);
    return document;
}

DiscoveredDevice ReadDevice(std::wstring_view document) {
    const auto value = [&](std::wstring_view tag) { return TagDocument::ValueOf(document, tag); };
    return {.model = value(Tag::MODEL_STRING),
            .series = value(Tag::SERIESSTRID),
            .address = value(Tag::IPADDRESS),
            .hostName = value(Tag::IPNAME),
            .macAddress = value(Tag::MACUAA),
            .colour = value(Tag::COLORTYPE),
            .isMultiFunction = !value(Tag::MULTI_FUNCTION_MODEL).empty(),
            .hasFax = value(Tag::FAXINSTALLED) == L"1"};
}

bool IsKept(const DiscoveredDevice& device, std::wstring_view message) {
    const bool wantsMultiFunction = message.find(DeviceType::FAX) != std::wstring_view::npos ||
                                    message.find(DeviceType::SCANNER) != std::wstring_view::npos;
    return device.isMultiFunction || !wantsMultiFunction;
}

DeviceIndex::DeviceIndex(std::vector<std::wstring>& indexedDocuments) : documents(indexedDocuments) {
    for (std::size_t position = 0; position < documents.size(); ++position) {
        positions[TagDocument::ValueOf(documents[position], Tag::IPADDRESS)].insert(position);
    }
}

void DeviceIndex::SetTag(std::wstring_view address, std::wstring_view tag, std::wstring_view value) {
    const std::wstring former(address);
    const auto found = positions.find(former);
    if (found == positions.end() || found->second.empty()) return;
    const std::size_t position = *found->second.begin();
    TagDocument::SetElement(documents[position], tag, value);
    // A value from outside can bring an address along.
    const std::wstring now = TagDocument::ValueOf(documents[position], Tag::IPADDRESS);
    if (now == former) return;
    found->second.erase(position);
    positions[now].insert(position);
}

void ApplyColours(std::wstring_view reply, DeviceIndex& index) {
    for (const std::wstring& entry : SplitClosed(reply, L';')) {
        const std::size_t colon = entry.find(L':');
        if (colon == std::wstring::npos) continue;
        index.SetTag(std::wstring_view(entry).substr(0, colon), Tag::COLORTYPE, entry.substr(colon + 1));
    }
}
