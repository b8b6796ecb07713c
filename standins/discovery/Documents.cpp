#include "standins/discovery/Documents.h"

#include <algorithm>
#include <array>
#include <map>

#include "CommonLib/TextUtilities.h"
#include "settings/TagDocument.h"
#include "standins/discovery/PlainText.h"

namespace discovery {

namespace {

// Elements of the search, the enumeration and the device documents.
constexpr std::wstring_view unicastAddress = L"UnicastAddress";
constexpr std::wstring_view remoteSubnets = L"RemoteSubnets";
constexpr std::wstring_view oemByte = L"OEMBYTE";
constexpr std::wstring_view seriesText = L"SERIESSTRID";
constexpr std::wstring_view addressElement = L"IPADDRESS";
constexpr std::wstring_view ipName = L"IPNAME";
constexpr std::wstring_view hardwareAddressElement = L"MACUAA";
constexpr std::wstring_view modelText = L"1284STRID";
constexpr std::wstring_view multiFunctionModel = L"aioModelName";
// Of the recall documents.
constexpr std::wstring_view colourElement = L"COLORTYPE";
constexpr std::wstring_view faxElement = L"FAXINSTALLED";
constexpr std::wstring_view ippPortElement = L"IPPPORT";
constexpr std::wstring_view ippPathElement = L"IPPPATH";

constexpr std::wstring_view colourWord = L"color";
constexpr std::wstring_view monoWord = L"mono";

using TagDocument::MakeElement;
using TagDocument::ValueOf;

std::wstring Widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

std::wstring HardwareText(const Bytes& bytes) {
    constexpr std::wstring_view digits = L"0123456789ABCDEF";
    std::wstring text;
    for (const char byte : bytes) {
        text += digits[static_cast<std::uint8_t>(byte) >> 4];
        text += digits[static_cast<std::uint8_t>(byte) & 15];
    }
    return text;
}

// The model becomes the printer's name, which cannot hold everything.
std::string WithoutForbidden(std::string text) {
    std::ranges::replace_if(
        text, [](char letter) { return letter == '\\' || letter == ',' || letter == '!'; }, ' ');
    return text;
}

// A device that does not name itself is still there to be picked, by its address.
std::wstring ModelOf(const DeviceFacts& device) {
    const std::wstring model = PlainText(WithoutForbidden(device.name.model));
    return model.empty() ? Widen(MainAddress(device).ToHostText()) : model;
}

// What tells the device from another of the same model.
std::wstring ShortNameOf(const DeviceFacts& device) {
    const std::wstring label =
        PlainText(WithoutForbidden(device.localName.substr(0, device.localName.find('.'))));
    return label.empty() ? Widen(MainAddress(device).ToHostText()) : label;
}

std::wstring FullModelOf(const DeviceFacts& device) {
    const std::wstring maker = PlainText(device.name.maker);
    return maker.empty() ? ModelOf(device) : maker + L" " + ModelOf(device);
}

bool IsAnyOf(const std::wstring& text, const std::vector<std::wstring>& wanted) {
    return std::ranges::any_of(wanted,
                               [&](const std::wstring& each) { return EqualsIgnoringCase(each, text); });
}

std::vector<std::wstring> NonEmpty(std::vector<std::wstring> texts) {
    std::erase(texts, std::wstring());
    return texts;
}

// How well an address serves to reach the device from here and tomorrow.
int RankOf(const NetworkAddress& address) {
    return (address.IsIpV6() ? 0 : 2) + (address.IsLinkLocal() ? 0 : 1);
}

}  // namespace

SearchScope ReadSearchDocument(std::wstring_view document) {
    std::wstring value;
    if (TagDocument::FindValue(document, unicastAddress, value)) return OneHost{value};
    if (!TagDocument::FindValue(document, remoteSubnets, value)) return LocalNetworks{};
    RemoteSubnets scope;
    for (const std::wstring& entry : SplitClosed(value + L';', L';')) {
        if (const auto subnet = Subnet::FromText(entry)) scope.subnets.push_back(*subnet);
    }
    return scope;
}

DeviceFilter ReadEnumerationDocument(std::wstring_view document, const OemTable& table) {
    return {.makers = MakersOf(table, ValueOf(document, oemByte)),
            .series = NonEmpty(SplitClosed(ValueOf(document, seriesText) + L';', L';'))};
}

bool DeviceFilter::Wants(const DeviceFacts& device) const {
    if (!makers.empty() && !IsAnyOf(PlainText(device.name.maker), makers)) return false;
    return series.empty() || IsAnyOf(ModelOf(device), series) || IsAnyOf(FullModelOf(device), series);
}

const NetworkAddress& MainAddress(const DeviceFacts& device) {
    return *std::ranges::max_element(device.addresses, {}, RankOf);
}

std::wstring MakeDeviceDocument(const DeviceFacts& device, std::wstring_view series,
                                bool resolvesLocalNames) {
    const std::wstring address = Widen(MainAddress(device).ToHostText());
    const std::wstring localName = resolvesLocalNames ? PlainText(device.localName) : std::wstring();
    std::wstring document = MakeElement(addressElement, address) +
                            MakeElement(ipName, localName.empty() ? address : localName) +
                            MakeElement(hardwareAddressElement, HardwareText(device.hardwareAddress)) +
                            MakeElement(modelText, FullModelOf(device)) + MakeElement(seriesText, series);
    if (device.canScan.value_or(false) || device.hasFax.value_or(false)) {
        document += MakeElement(multiFunctionModel, FullModelOf(device));
    }
    return document;
}

std::wstring MakeListing(const std::vector<DeviceFacts>& devices, const DeviceFilter& filter,
                         bool resolvesLocalNames) {
    std::map<std::wstring, int> models;
    for (const DeviceFacts& device : devices) models[ModelOf(device)] += filter.Wants(device) ? 1 : 0;
    std::wstring listing;
    for (const DeviceFacts& device : devices) {
        if (!filter.Wants(device)) continue;
        const std::wstring model = ModelOf(device);
        const std::wstring series = models[model] > 1 ? model + L" (" + ShortNameOf(device) + L")" : model;
        listing += MakeDeviceDocument(device, series, resolvesLocalNames) + L'\0';
    }
    return listing;
}

std::wstring MakeRecallDocument(const DeviceFacts& device) {
    std::wstring document;
    if (device.isColour) document += MakeElement(colourElement, ColourWord(*device.isColour));
    if (device.hasFax) document += MakeElement(faxElement, *device.hasFax ? L"1" : L"0");
    if (device.ipp) {
        document += MakeElement(ippPortElement, std::to_wstring(device.ipp->port)) +
                    MakeElement(ippPathElement, PlainText(device.ipp->path));
    }
    return document;
}

DeviceFacts ReadRecallDocument(std::wstring_view document) {
    DeviceFacts device;
    std::wstring value;
    if (TagDocument::FindValue(document, colourElement, value)) device.isColour = value == colourWord;
    if (TagDocument::FindValue(document, faxElement, value)) device.hasFax = value == L"1";
    if (TagDocument::FindValue(document, ippPortElement, value)) {
        const std::wstring text = ValueOf(document, ippPathElement);
        device.ipp = {.port = static_cast<std::uint16_t>(LeadingInteger(value)),
                      .path = std::string(text.begin(), text.end())};
    }
    return device;
}

std::wstring_view ColourWord(bool isColour) {
    return isColour ? colourWord : monoWord;
}

}  // namespace discovery
