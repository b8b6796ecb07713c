// The blackboard through which pages, the Controller and the services talk to each other.
#pragma once

#include <initializer_list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/TagName.h"

// Holds one tag document, filled at start from the package's settings files and never saved. Each operation
// is safe on any thread; what several operations mean together rests on the order of the wizard: a page
// leaves alone what a running service writes. A missing tag is no error anywhere: it reads as empty or false.
class InstallSettings {
public:
    using NamedText = std::pair<TextTag, std::wstring_view>;
    using NamedFlag = std::pair<FlagTag, bool>;

    static InstallSettings& GetInstance();
    static void DestroyInstance();

    InstallSettings() = default;

    std::wstring GetString(TextTag tag) const;
    // True for "true" in any case and for "1".
    bool GetBool(FlagTag tag) const;
    // True for the one text that means yes, and for no other.
    bool IsSet(StrictFlagTag tag) const;
    // Moves the tag to the end of the document. An empty tag name changes nothing.
    void SetString(TextTag tag, std::wstring_view value);
    void SetBool(FlagTag tag, bool flag);
    // The same for each pair, in the order given.
    void SetStrings(std::initializer_list<NamedText> values);
    void SetBools(std::initializer_list<NamedFlag> flags);

    // All values of a repeated tag, in document order.
    std::vector<std::wstring> GetAllValues(ListTag tag) const;
    // The values of a repeated tag that hold the separator, as key and value around its first occurrence; the
    // first entry of a key is kept.
    std::map<std::wstring, std::wstring> GetKeyedValues(ListTag tag, std::wstring_view separator) const;

    // The device documents of a predefined configuration, in file order.
    std::vector<std::wstring> GetDevices() const;
    void SetDevices(std::vector<std::wstring> documents);
    // The non-empty values of the tag in the device documents.
    std::vector<std::wstring> GetDeviceValues(std::wstring_view tag) const;
    // Sets the tag in each device document; a fax driver that is to be on "USB" gets its three port tags
    // instead.
    void SetDeviceValue(std::wstring_view tag, std::wstring_view value);
    // Puts each device on a network port; an empty port name stands for the address.
    void SetNetworkPort(std::wstring_view address, std::wstring_view portName);

    // Appends to STARTAPP, with nothing between.
    void AppendStartApp(std::wstring_view text);
    std::wstring GetStartApp() const;
    // The whole document without the start marker, for the log.
    std::wstring StripMarker() const;
    // The same, but a document that does not hold the marker as it stands.
    std::wstring FileValues() const;

    // Takes the text of the package's own settings file into the document.
    void Append(std::wstring_view text);
    // Lays the elements of a second settings file over the document.
    void Merge(std::wstring_view incoming);

    // Whether the package is of the second variant.
    bool IsAmazonSupported() const;

private:
    // Guards the texts below.
    mutable std::mutex lock;
    std::wstring document;
    // What the merged files have set so far, to tell the first occurrence of a tag from a repeated one.
    std::wstring mergedRecord;
    std::vector<std::wstring> devices;
};
