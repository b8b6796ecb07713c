#include "standins/PrinterQueue/Deed.h"

#include <algorithm>
#include <array>
#include <utility>

#include "CommonLib/TextUtilities.h"
#include "standins/PrinterQueue/FieldText.h"

namespace printerqueue {
namespace {

constexpr std::array<std::pair<DeedKind, std::wstring_view>, 6> kindNames = {{
    {DeedKind::PortMade, L"port made"},
    {DeedKind::DriverMade, L"driver made"},
    {DeedKind::QueueMade, L"queue made"},
    {DeedKind::QueueChanged, L"queue changed"},
    {DeedKind::ConnectionMade, L"connection made"},
    {DeedKind::DefaultChanged, L"default changed"},
}};

constexpr std::array<std::pair<PortKind, std::wstring_view>, 3> portKindNames = {{
    {PortKind::Raw, L"raw"},
    {PortKind::Lpr, L"lpr"},
    {PortKind::Local, L"local"},
}};

template <class Kind, std::size_t count>
std::wstring_view NameOf(const std::array<std::pair<Kind, std::wstring_view>, count>& names, Kind kind) {
    return std::ranges::find(names, kind, &std::pair<Kind, std::wstring_view>::first)->second;
}

template <class Kind, std::size_t count>
bool FindKind(const std::array<std::pair<Kind, std::wstring_view>, count>& names, std::wstring_view name,
              Kind& kind) {
    const auto found = std::ranges::find(names, name, &std::pair<Kind, std::wstring_view>::second);
    if (found == names.end()) return false;
    kind = found->first;
    return true;
}

std::uint32_t ReadNumber(std::wstring_view text, std::wstring_view name) {
    return static_cast<std::uint32_t>(LeadingInteger(ReadField(text, name)));
}

std::wstring WritePort(const PrinterPort& port) {
    return WriteField(L"KIND", NameOf(portKindNames, port.kind)) + WriteField(L"NAME", port.name) +
           WriteField(L"HOST", port.host) + WriteField(L"NUMBER", ToDecimalString(port.number)) +
           WriteField(L"LPR", port.lprQueue);
}

PrinterPort ReadPort(std::wstring_view text) {
    PrinterPort port{.name = ReadField(text, L"NAME"),
                     .host = ReadField(text, L"HOST"),
                     .number = ReadNumber(text, L"NUMBER"),
                     .lprQueue = ReadField(text, L"LPR")};
    FindKind(portKindNames, ReadField(text, L"KIND"), port.kind);
    return port;
}

std::wstring WriteQueue(const PrintQueue& queue) {
    return WriteField(L"NAME", queue.name) + WriteField(L"PORT", queue.port) +
           WriteField(L"DRIVER", queue.driver) + WriteField(L"LOCATION", queue.location) +
           WriteField(L"COMMENT", queue.comment) + WriteField(L"SHARE", queue.shareName) +
           WriteField(L"ATTRIBUTES", ToDecimalString(queue.attributes));
}

PrintQueue ReadQueue(std::wstring_view text) {
    return {.name = ReadField(text, L"NAME"),
            .port = ReadField(text, L"PORT"),
            .driver = ReadField(text, L"DRIVER"),
            .location = ReadField(text, L"LOCATION"),
            .comment = ReadField(text, L"COMMENT"),
            .shareName = ReadField(text, L"SHARE"),
            .attributes = ReadNumber(text, L"ATTRIBUTES")};
}

std::wstring WriteDeed(const Deed& deed) {
    return WriteField(L"KIND", NameOf(kindNames, deed.kind)) + WriteField(L"NAME", deed.name) +
           WriteField(L"FORMER", deed.former) + WriteField(L"INF", deed.infPath) +
           WriteField(L"PORT", WritePort(deed.port)) + WriteField(L"BEFORE", WriteQueue(deed.before)) +
           WriteField(L"AFTER", WriteQueue(deed.after));
}

std::wstring WriteDeeds(std::wstring_view name, const std::vector<Deed>& deeds) {
    std::wstring text;
    for (const Deed& deed : deeds) text += WriteField(L"DEED", WriteDeed(deed));
    return WriteField(name, text);
}

std::vector<Deed> ReadDeeds(std::wstring_view text, std::wstring_view name) {
    std::vector<Deed> deeds;
    for (const std::wstring& field : ReadFields(ReadField(text, name), L"DEED")) {
        Deed deed{.name = ReadField(field, L"NAME"),
                  .former = ReadField(field, L"FORMER"),
                  .infPath = ReadField(field, L"INF"),
                  .port = ReadPort(ReadField(field, L"PORT")),
                  .before = ReadQueue(ReadField(field, L"BEFORE")),
                  .after = ReadQueue(ReadField(field, L"AFTER"))};
        if (FindKind(kindNames, ReadField(field, L"KIND"), deed.kind)) deeds.push_back(std::move(deed));
    }
    return deeds;
}

void AddLastingDefault(std::vector<Deed>& lasting, const Deed& deed) {
    const auto earlier = std::ranges::find(lasting, DeedKind::DefaultChanged, &Deed::kind);
    if (earlier == lasting.end()) {
        lasting.push_back(deed);
        return;
    }
    if (!EqualsIgnoringCase(earlier->name, deed.former)) earlier->former = deed.former;
    earlier->name = deed.name;
}

}  // namespace

std::wstring WriteLedger(const Ledger& ledger) {
    return WriteDeeds(L"LASTING", ledger.lasting) + WriteField(L"OWNER", ledger.owner) +
           WriteField(L"RUN_ID", ledger.runId) +
           WriteField(L"REMOVES", ledger.runRemoves ? L"true" : L"false") + WriteDeeds(L"RUN", ledger.run) +
           WriteDeeds(L"LASTING_BEFORE", ledger.lastingBefore) +
           WriteField(L"OWNER_BEFORE", ledger.ownerBefore);
}

Ledger ReadLedger(std::wstring_view text) {
    return {.lasting = ReadDeeds(text, L"LASTING"),
            .owner = ReadField(text, L"OWNER"),
            .runId = ReadField(text, L"RUN_ID"),
            .runRemoves = ReadField(text, L"REMOVES") == L"true",
            .run = ReadDeeds(text, L"RUN"),
            .lastingBefore = ReadDeeds(text, L"LASTING_BEFORE"),
            .ownerBefore = ReadField(text, L"OWNER_BEFORE")};
}

const Deed* FindDeed(const std::vector<Deed>& deeds, DeedKind kind, std::wstring_view name) {
    const auto found = std::ranges::find_if(
        deeds, [&](const Deed& deed) { return deed.kind == kind && EqualsIgnoringCase(deed.name, name); });
    return found == deeds.end() ? nullptr : &*found;
}

void AddLastingDeed(std::vector<Deed>& lasting, const Deed& deed) {
    if (deed.kind == DeedKind::DefaultChanged) return AddLastingDefault(lasting, deed);
    if (deed.kind == DeedKind::QueueChanged) {
        const DeedKind kind = FindDeed(lasting, DeedKind::QueueMade, deed.name) != nullptr
                                  ? DeedKind::QueueMade
                                  : DeedKind::QueueChanged;
        const auto earlier = std::ranges::find_if(lasting, [&](const Deed& other) {
            return other.kind == kind && EqualsIgnoringCase(other.name, deed.name);
        });
        if (earlier != lasting.end()) {
            earlier->after = deed.after;
            return;
        }
    } else if (FindDeed(lasting, deed.kind, deed.name) != nullptr) {
        return;
    }
    lasting.push_back(deed);
}

}  // namespace printerqueue
