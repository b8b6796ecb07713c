// The blackboard through which pages, the Controller and the services talk to each other.
#pragma once

#include <initializer_list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CommonLib/Singleton.h"

struct MSI_APP;

// Holds one tag document, filled at start from the package's settings files and never saved. Each operation
// is safe on any thread; what several operations mean together rests on the order of the wizard: a page
// leaves alone what a running service writes. A missing tag is no error anywhere: it reads as empty or false.
class InstallSettings {
public:
    using NamedText = std::pair<std::wstring_view, std::wstring_view>;
    using NamedFlag = std::pair<std::wstring_view, bool>;

    static InstallSettings& GetInstance();
    static void DestroyInstance();

    std::wstring GetString(std::wstring_view tag) const;
    // True for "true" in any case and for "1".
    bool GetBool(std::wstring_view tag) const;
    // Moves the tag to the end of the document. An empty tag name changes nothing.
    void SetString(std::wstring_view tag, std::wstring_view value);
    void SetBool(std::wstring_view tag, bool flag);
    // The same for each pair, in the order given.
    void SetStrings(std::initializer_list<NamedText> values);
    void SetBools(std::initializer_list<NamedFlag> flags);

    // All values of a repeated tag, in document order.
    std::vector<std::wstring> GetAllValues(std::wstring_view tag) const;
    // The values of a repeated tag that hold the separator, as key and value around its first occurrence; the
    // first entry of a key is kept.
    std::map<std::wstring, std::wstring> GetKeyedValues(std::wstring_view tag,
                                                        std::wstring_view separator) const;

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
    // Names the devices that asked for the detected name, and lets none ask again.
    void ApplyDetectedName(const std::wstring& printerName);

    // Appends to STARTAPP, with nothing between.
    void AppendStartApp(std::wstring_view text);
    std::wstring GetStartApp() const;
    // The whole document without the start marker, for the log.
    std::wstring StripMarker() const;

    // Reads defaultInstallSettings.xml into the document. Gives 0, or the error number of a file that cannot
    // be opened; the document then stays empty.
    int LoadDefaults();
    // Lays the file's elements over the document. Gives 0, or the error number of a file that cannot be
    // opened.
    int MergeFile(const std::wstring& path);

    // True only for the exact word "TRUE", unlike GetBool, and this is meant.
    bool IsAmazonSupported() const;
    // The driver proposed for "mono", "color" or any other word, on this system.
    std::wstring GetDefaultDriver(const std::wstring& colourClass) const;

    // The document that tells the installation of this driver what to set up. Called by the install thread
    // alone: what one driver set stays for the next.
    std::wstring BuildPrinterInfo(const MSI_APP& driver);
    std::wstring GetPrinterName(const MSI_APP& driver) const;
    std::wstring GetDriverProductName(const MSI_APP& driver) const;
    // False for a port that exists already or that needs none.
    bool PortNeedsAdding(const std::wstring& portType, const std::wstring& portName) const;

    // Copies the configuration files of the devices to free names in the machine-wide folder.
    void ResolveDriverConfigPaths();
    // Unpacks the configuration tools that the devices name. Takes at least five seconds per device.
    void ResolveConfigExePaths();

    // Sets the help link and its label, from the devices' common series or for the given printer.
    void DeriveInfoCenterLinks();
    void BuildInfoCenterLinks(const std::wstring& model, const std::wstring& series);

private:
    friend class Singleton<InstallSettings>;
    InstallSettings() = default;

    static int ReadFromFile(const std::wstring& path, std::wstring& text);
    void ApplyVendor();

    std::wstring GetModelName(bool fax) const;
    std::wstring GetDevicesForDriver(const std::wstring& driverId) const;
    std::wstring BuildDeviceElement(std::wstring device) const;
    void FillCurrentDevice(const MSI_APP& driver);
    void CopyToCurrentDevice(std::initializer_list<std::wstring_view> tags);
    std::wstring GetProductCode(const std::wstring& model, const std::wstring& series) const;
    std::wstring FormatCodeForLink(const std::wstring& code) const;

    // Guards the texts below.
    mutable std::mutex lock;
    std::wstring document;
    // What the merged files have set so far, to tell the first occurrence of a tag from a repeated one.
    std::wstring mergedRecord;
    std::vector<std::wstring> devices;
    // Of the driver being installed; the install thread's own.
    std::wstring currentDevice;
};
