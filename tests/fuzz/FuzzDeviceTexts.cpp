#include "settings/TagDocument.h"
#include "standins/discovery/Documents.h"
#include "standins/discovery/PlainText.h"
#include "tests/fuzz/FuzzInput.h"

using discovery::BytesView;

// The input as a device id, as the strings of a TXT record, and as what a device says of itself in its
// document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const BytesView bytes(reinterpret_cast<const char*>(data), size);
    discovery::DeviceFacts device{.addresses = {discovery::NetworkAddress(0xC0000207)}};
    const discovery::KeyedTexts deviceId = discovery::ReadDeviceId(bytes);
    device.name = discovery::NameOf(deviceId);
    discovery::TakeClasses(deviceId, device);
    discovery::ReadTxtRecord(
        {discovery::Bytes(bytes.substr(0, size / 2)), discovery::Bytes(bytes.substr(size / 2))});
    Require(discovery::PlainText(bytes).size() <= discovery::longestPlainText);
    device.localName = bytes;
    const std::wstring document = discovery::MakeListing({device}, {}, true);
    Require(TagDocument::ValueOf(document, L"IPADDRESS") == L"192.0.2.7");
    Require(TagDocument::ValueOf(document, L"IPNAME").find(L'<') == std::wstring::npos);
    Require(document.find(L';') == std::wstring::npos);
    return 0;
}
