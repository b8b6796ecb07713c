#include "standins/PrinterQueue/PrinterDevice.h"

#include <algorithm>

#include "CommonLib/Exception.h"
#include "CommonLib/TextUtilities.h"
#include "settings/DeviceDocument.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "standins/PrinterQueue/DeviceTags.h"
#include "standins/discovery/NetworkAddress.h"

namespace printerqueue {
namespace {

// What the spooler takes.
constexpr std::size_t longestQueueName = 220;
constexpr std::size_t longestNetworkPortName = 63;
constexpr std::size_t longestLocalPortName = 259;
constexpr std::size_t longestHost = 48;
constexpr std::size_t longestLprQueue = 32;
constexpr std::int32_t rawPortNumber = 9100;
constexpr std::int32_t lprPortNumber = 515;
constexpr std::int32_t highestPortNumber = 65535;

[[noreturn]] void Refuse(const PrinterDevice& device, const std::wstring& why) {
    throw Exception(L"The printer \"" + device.name + L"\" cannot be set up: " + why);
}

std::wstring_view WithoutBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L" \t") + 1 - first);
}

// The elements are searched for one after the other, so that a document takes time in proportion to its
// length whatever it holds.
std::vector<std::wstring_view> DeviceTexts(std::wstring_view document) {
    constexpr std::wstring_view open = L"<DEVICE>";
    constexpr std::wstring_view close = L"</DEVICE>";
    std::vector<std::wstring_view> texts;
    std::size_t start = 0;
    while ((start = document.find(open, start)) != std::wstring_view::npos) {
        start += open.size();
        const std::size_t end = document.find(close, start);
        if (end == std::wstring_view::npos) break;
        texts.push_back(document.substr(start, end - start));
        start = end + close.size();
    }
    return texts;
}

std::wstring TextOr(std::wstring_view device, std::wstring_view tag, const std::wstring& otherwise) {
    const std::wstring value(WithoutBlanks(TagDocument::ValueOf(device, tag)));
    return value.empty() ? otherwise : value;
}

std::wstring Text(std::wstring_view device, std::wstring_view tag) {
    return TextOr(device, tag, {});
}

bool IsOn(std::wstring_view device, FlagTag tag) {
    const std::wstring value = Text(device, tag);
    return value == L"1" || EqualsIgnoringCase(value, L"true");
}

bool HoldsControl(std::wstring_view text) {
    return std::ranges::any_of(text, [](wchar_t unit) { return unit < L' '; });
}

void CheckName(const PrinterDevice& device) {
    if (device.name.empty()) throw Exception(L"A printer has no name (PRINTER_NAME), and cannot be set up.");
    if (device.name.size() > longestQueueName) Refuse(device, L"its name has more than 220 characters.");
    if (device.name.find_first_of(L"\\,!") != std::wstring::npos || HoldsControl(device.name)) {
        Refuse(device, L"a printer's name cannot hold a backslash, a comma or an exclamation mark.");
    }
}

// A shared printer keeps the name that its server gives it, so its name here is for messages alone.
void CheckSharePath(PrinterDevice& device) {
    if (device.name.empty()) device.name = device.sharePath;
    if (!device.sharePath.starts_with(L"\\\\") || HoldsControl(device.sharePath)) {
        Refuse(device, L"\"" + device.sharePath + L"\" is no path of a shared printer (NETWORK_PATH).");
    }
}

void CheckText(const PrinterDevice& device, std::wstring_view what, std::wstring_view text,
               std::size_t longest) {
    if (text.size() > longest) {
        Refuse(device, std::wstring(what) + L" \"" + std::wstring(text) + L"\" has more than " +
                           ToDecimalString(static_cast<std::uint32_t>(longest)) + L" characters.");
    }
    if (HoldsControl(text)) Refuse(device, std::wstring(what) + L" holds a control character.");
}

void CheckPort(const PrinterDevice& device) {
    const PrinterPort& port = device.port;
    if (port.name.empty()) Refuse(device, L"its port has no name (PORT_NAME).");
    // A comma divides the ports of one queue.
    if (port.name.find(L',') != std::wstring::npos) {
        Refuse(device, L"the name of its port, \"" + port.name + L"\", holds a comma.");
    }
    const bool isLocal = port.kind == PortKind::Local;
    CheckText(device, L"the port", port.name, isLocal ? longestLocalPortName : longestNetworkPortName);
    CheckText(device, L"the host", port.host, longestHost);
    CheckText(device, L"the queue for LPR", port.lprQueue, longestLprQueue);
}

std::uint32_t ReadPortNumber(const PrinterDevice& device, const std::wstring& text, PortKind kind) {
    if (text.empty()) return kind == PortKind::Lpr ? lprPortNumber : rawPortNumber;
    const std::int32_t number = std::ranges::all_of(text, IsDigit) ? LeadingInteger(text) : 0;
    if (number < 1 || number > highestPortNumber) {
        Refuse(device, L"\"" + text + L"\" is no number of a TCP port (PORT_NUMBER).");
    }
    return static_cast<std::uint32_t>(number);
}

// The name that Windows has for an address of IPv6 can be too long for a port, and only Windows resolves it.
std::wstring WithPlainAddress(const std::wstring& host) {
    const bool isPlain = host.find(L':') != std::wstring::npos;
    const auto address = discovery::NetworkAddress::FromText(host);
    if (isPlain || !address || !address->IsIpV6()) return host;
    const std::string plain = address->ToText();
    return {plain.begin(), plain.end()};
}

void ReadNetworkPort(std::wstring_view text, const PackageWishes& wishes, PrinterDevice& device) {
    PrinterPort& port = device.port;
    const bool isLpr = EqualsIgnoringCase(TextOr(text, DeviceTag::PROTOCOL, wishes.protocol), DeviceTag::LPR);
    port.kind = isLpr ? PortKind::Lpr : PortKind::Raw;
    port.host = TextOr(text, Tag::HOST_NAME, Text(text, Tag::IPADDRESS));
    if (port.name.empty()) port.name = port.host;
    if (port.host.empty()) port.host = port.name;
    port.host = WithPlainAddress(port.host);
    port.number = ReadPortNumber(device, TextOr(text, DeviceTag::PORT_NUMBER, wishes.portNumber), port.kind);
    if (isLpr) port.lprQueue = TextOr(text, DeviceTag::LPR_QUEUE, wishes.lprQueue);
    if (isLpr && port.lprQueue.empty()) port.lprQueue = DeviceTag::usualLprQueue;
}

void ReadLink(std::wstring_view text, const PackageWishes& wishes, PrinterDevice& device) {
    const std::wstring type = Text(text, Tag::PORT_TYPE);
    device.port.name = Text(text, Tag::PORT_NAME);
    device.makesPort = IsOn(text, Tag::ADD_PORT);
    if (type == networkPortType) {
        ReadNetworkPort(text, wishes, device);
    } else if (device.port.name.empty()) {
        device.link = type == usbPortType ? DeviceLink::PlugAndPlay : DeviceLink::None;
        return;
    }
    device.link = DeviceLink::Port;
    CheckPort(device);
}

PrinterDevice ReadDevice(std::wstring_view text, const PackageWishes& wishes) {
    PrinterDevice device;
    device.name = Text(text, Tag::PRINTER_NAME);
    device.becomesDefault = IsOn(text, Tag::SET_DEFAULT);
    device.location = TextOr(text, DeviceTag::LOCATION, wishes.location);
    device.comment = TextOr(text, DeviceTag::COMMENT, wishes.comment);
    device.sharePath = Text(text, Tag::NETWORK_PATH);
    if (!device.sharePath.empty()) {
        CheckSharePath(device);
        device.link = DeviceLink::SharedPrinter;
        return device;
    }
    CheckName(device);
    ReadLink(text, wishes, device);
    return device;
}

}  // namespace

std::vector<PrinterDevice> ReadDevices(std::wstring_view printerInfo, const PackageWishes& wishes) {
    std::vector<PrinterDevice> devices;
    for (const std::wstring_view text : DeviceTexts(printerInfo)) devices.push_back(ReadDevice(text, wishes));
    return devices;
}

std::vector<std::wstring> ReadNames(std::wstring_view list) {
    std::vector<std::wstring> names;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(L';'), list.size());
        const std::wstring_view name = WithoutBlanks(list.substr(0, end));
        if (!name.empty()) names.emplace_back(name);
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return names;
}

}  // namespace printerqueue
