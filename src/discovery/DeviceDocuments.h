// The device documents of a discovery run: split from what the library lists, extended by what the devices
// answer, turned into the records of the page.
#pragma once

#include <cstdint>
#include <list>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "discovery/DiscoveredDevice.h"

// Everything here computes on its arguments alone and takes time in proportion to them.

// Returns the documents of an enumeration, each closed by a NUL or by ";". Empty ones and a rest that nothing
// closes are dropped.
// By design: a ";" in a value splits its document.
std::vector<std::wstring> SplitEnumeration(std::wstring listed);

// Returns the address of each document followed by ";". A document without the tag adds the ";" alone.
std::wstring AddressList(const std::vector<std::wstring>& documents);

// Returns the document that limits an enumeration; empty values leave their element out.
std::wstring EnumerationDocument(std::wstring_view oemByte, std::wstring_view seriesList);

// Returns the record of a document; a missing tag leaves its field empty.
DiscoveredDevice ReadDevice(std::wstring_view document);

// Returns true if the record is kept for a caller with that message: one that speaks of fax or scanner wants
// multi-function devices only.
bool IsKept(const DiscoveredDevice& device, std::wstring_view message);

// Finds documents by their address while their tags are being set. The documents must outlive it and be
// changed through it alone.
class DeviceIndex {
public:
    explicit DeviceIndex(std::vector<std::wstring>& indexedDocuments);

    // Sets the tag in the first document with that address; does nothing where there is none.
    void SetTag(std::wstring_view address, std::wstring_view tag, std::wstring_view value);

private:
    std::vector<std::wstring>& documents;
    std::unordered_map<std::wstring, std::set<std::size_t>> positions;
};

// Sets the colour in the documents that a reply of the form address, ":", colour, ";" and so on names. An
// entry without ":" is passed over, and so is a rest without ";".
void ApplyColours(std::wstring_view reply, DeviceIndex& index);
