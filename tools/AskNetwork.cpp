// Asks the network what the wizard asks, through the Sondrix.dll and Quelmar.dll that lie beside this
// program, and prints what came back and how long it took:
//
//   AskNetwork [SEARCH]    SEARCH is a search document; without one the local subnets are searched
//
// A line is a word and its values, divided by tabs: "search", "listing" and "colours" with a code and
// milliseconds, "faxes" with milliseconds, "memory" with the most kilobytes that this program had in use
// before and at the end, "document" with what the search lists, and "device" with address, host, model,
// series, hardware address, colour, fax and whether it does more than print.

#include <windows.h>
//
#include <psapi.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/PackageLibraries.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextUtilities.h"
#include "discovery/DeviceDocuments.h"
#include "discovery/NpaQuestions.h"
#include "discovery/NpaReply.h"
#include "discovery/ReplyMemory.h"
#include "framework/Handles.h"
#include "framework/SystemLibrary.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "tools/PrintLine.h"

namespace {

constexpr std::wstring_view timeout = L"3000";

void PrintValues(const std::vector<std::wstring>& values) {
    std::wstring line;
    for (const std::wstring& value : values) line += (line.empty() ? L"" : L"\t") + value;
    PrintLine(line);
}

std::wstring PeakKilobytes() {
    PROCESS_MEMORY_COUNTERS counters{.cb = sizeof counters};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return std::to_wstring(counters.PeakWorkingSetSize / 1024);
}

// Counts from where it is made.
class Stopwatch {
public:
    std::wstring Milliseconds() const {
        const auto passed = std::chrono::steady_clock::now() - start;
        return std::to_wstring(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
    }

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

// The two libraries, which are brought up and down with this object.
class Libraries {
public:
    Libraries()
        : sondrix(LoadPackageLibrary(GetExeDirectory() + L"\\Sondrix.dll")),
          quelmar(LoadPackageLibrary(GetExeDirectory() + L"\\Quelmar.dll")) {
        if (!AreComplete()) return;
        FindExport<decltype(&Initialize)>(sondrix.get(), "Initialize")();
        FindExport<decltype(&Initialize)>(quelmar.get(), "BidiInitialize")();
    }
    Libraries(const Libraries&) = delete;
    Libraries& operator=(const Libraries&) = delete;
    ~Libraries() {
        if (!AreComplete()) return;
        FindExport<decltype(&Initialize)>(sondrix.get(), "Uninitialize")();
        FindExport<decltype(&Initialize)>(quelmar.get(), "BidiUninitialize")();
    }

    bool AreComplete() const {
        return Has(sondrix, {"Initialize", "Uninitialize", "DiscoverW", "EnumerateW"}) &&
               Has(quelmar, {"BidiInitialize", "BidiUninitialize", "BidiExchangeNpaAll", "BidiExchangeNpaW"});
    }
    std::uint32_t Discover(const std::wstring& search) const {
        return FindExport<decltype(&DiscoverW)>(sondrix.get(), "DiscoverW")(search.c_str());
    }
    std::uint32_t Enumerate(std::vector<std::wstring>& documents) const;
    std::uint32_t AskColours(std::vector<std::wstring>& documents) const;
    bool HasFax(const std::wstring& address) const;

private:
    static bool Has(const Library& library, const std::vector<const char*>& names) {
        for (const char* name : names) {
            if (!library || FindExport<decltype(&Initialize)>(library.get(), name) == nullptr) return false;
        }
        return true;
    }

    Library sondrix;
    Library quelmar;
};

std::uint32_t Libraries::Enumerate(std::vector<std::wstring>& documents) const {
    const auto enumerate = FindExport<decltype(&EnumerateW)>(sondrix.get(), "EnumerateW");
    const std::wstring request = EnumerationDocument(L"", L"");
    std::wstring listing(1, L'\0');
    std::uint32_t required = 0;
    std::uint32_t code = enumerate(listing.data(), 1, &required, request.c_str());
    if (code == MsiCode::BufferTooSmall) {
        listing.assign(required, L'\0');
        code = enumerate(listing.data(), required, &required, request.c_str());
    }
    if (code == MsiCode::Success) documents = SplitEnumeration(std::move(listing));
    return code;
}

std::uint32_t Libraries::AskColours(std::vector<std::wstring>& documents) const {
    const std::wstring request = TagDocument::MakeElement(Tag::IPLIST, AddressList(documents)) +
                                 TagDocument::MakeElement(Tag::TIMEOUT, timeout);
    wchar_t* reply = nullptr;
    std::uint32_t length = 0;
    const std::uint32_t code = FindExport<decltype(&BidiExchangeNpaAll)>(quelmar.get(), "BidiExchangeNpaAll")(
        request.c_str(), colourQuestion.data(), static_cast<std::uint32_t>(colourQuestion.size()), &reply,
        &length, &ReplyMemory::Allocate);
    if (code == MsiCode::Success) {
        DeviceIndex index(documents);
        ApplyColours(ReplyMemory::Read(reply, length), index);
    }
    ReplyMemory::ReleaseAll();
    return code;
}

bool Libraries::HasFax(const std::wstring& address) const {
    const auto exchange = FindExport<decltype(&BidiExchangeNpaW)>(quelmar.get(), "BidiExchangeNpaW");
    const std::wstring request =
        TagDocument::MakeElement(Tag::IPADDRESS, address) + TagDocument::MakeElement(Tag::TIMEOUT, timeout);
    std::vector<std::uint8_t> reply;
    std::uint32_t length = 0;
    const auto call = [&] {
        return exchange(request.c_str(), deviceQuestion.data(),
                        static_cast<std::uint32_t>(deviceQuestion.size()), reply.data(),
                        static_cast<std::uint32_t>(reply.size()), &length);
    };
    std::uint32_t code = call();
    if (code == MsiCode::BufferTooSmall) {
        reply.resize(length);
        code = call();
    }
    if (code != MsiCode::Success) return false;
    const auto info = DecodeNpaReply(reply, &Utf8ToWide);
    return info && info->HasFax();
}

void Print(const DiscoveredDevice& device) {
    PrintValues({L"device", device.address, device.hostName, device.model, device.series, device.macAddress,
                 device.colour, device.hasFax ? L"fax" : L"",
                 device.isMultiFunction ? L"multi-function" : L""});
}

int AskAndPrint(const Libraries& libraries, const std::wstring& search) {
    const std::wstring kilobytesBefore = PeakKilobytes();
    const Stopwatch searching;
    const std::uint32_t found = libraries.Discover(search);
    PrintValues({L"search", std::to_wstring(found), searching.Milliseconds()});
    if (found != MsiCode::Success) return 1;
    std::vector<std::wstring> documents;
    const Stopwatch listing;
    const std::uint32_t listed = libraries.Enumerate(documents);
    PrintValues({L"listing", std::to_wstring(listed), listing.Milliseconds()});
    for (const std::wstring& document : documents) PrintValues({L"document", document});
    const Stopwatch colours;
    const std::uint32_t answered = libraries.AskColours(documents);
    PrintValues({L"colours", std::to_wstring(answered), colours.Milliseconds()});
    std::vector<DiscoveredDevice> devices;
    const Stopwatch faxes;
    for (const std::wstring& document : documents) {
        devices.push_back(ReadDevice(document));
        devices.back().hasFax = libraries.HasFax(devices.back().address);
    }
    PrintValues({L"faxes", faxes.Milliseconds()});
    PrintValues({L"memory", kilobytesBefore, PeakKilobytes()});
    for (const DiscoveredDevice& device : devices) Print(device);
    return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    RestrictLibrarySearch();
    const Libraries libraries;
    if (!libraries.AreComplete()) {
        PrintLine(L"Sondrix.dll and Quelmar.dll do not lie beside this program, or lack an export.");
        return 1;
    }
    return AskAndPrint(libraries, count > 1 ? arguments[1] : L"");
}
