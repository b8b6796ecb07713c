// The configuration of a driver: whether there can be one, and the tool that makes it.
#pragma once

#include <string>

#include "catalogue/AppCatalogue.h"
#include "catalogue/DriverInfo.h"
#include "settings/InstallSettings.h"

// A driver text is an identifier or a name of a driver. All this belongs to the thread of the pages; what the
// object is made with must outlive it.
//
// Reads OEM and PRODUCT_NAME; reads and writes DRIVERCONFIG_PATH; writes CONFIG_APPLY_FUTURE, CONFIG_EXE_PATH
// and OMBREL_DESC.
class DriverConfiguration {
public:
    DriverConfiguration(InstallSettings& store, const AppCatalogue& appCatalogue,
                        const DriverInfo& driverCatalogue)
        : settings(store), applications(appCatalogue), drivers(driverCatalogue) {}

    // Whether the package brings the configuration tool of the driver's generation, or of any for an empty
    // text.
    bool IsConfigToolAvailable(const std::wstring& driver) const;
    // Whether the driver takes a configuration and there is a tool for it.
    bool CanConfigureDriver(const std::wstring& driverId) const;
    // Whose configuration it is that the settings hold now.
    void SetOwner(const std::wstring& driverId) { owner = driverId; }
    // Says which driver is selected. A configuration belongs to the driver for which it was chosen, and one
    // of the package to the first that is selected: with another driver it goes, and all that belongs to it.
    // Nothing happens for an empty identifier.
    void Follow(const std::wstring& driverId);

    // Starts the unpacking of the generation's tool where this process has not done so yet.
    void UnpackTool(const std::wstring& driverId);
    // Returns the path of the unpacked tool, empty while there is none.
    std::wstring FindConfigTool(const std::wstring& driver) const;
    // Returns the command line that has the tool make a configuration file with a free name.
    std::wstring MakeConfigCommand(const std::wstring& driver) const;
    // Returns the path of a configuration file that does not exist yet; its folder does afterwards.
    std::wstring MakeConfigFileName(const std::wstring& driver) const;

private:
    void Drop();
    bool IsInCatalogue(std::wstring_view appType) const;

    InstallSettings& settings;
    const AppCatalogue& applications;
    const DriverInfo& drivers;
    std::wstring owner;
};

// Returns the machine-wide folder of configuration files, with its closing backslash.
std::wstring GetConfigurationFolder();

// Returns the folder of the unpacked tool of that vendor, with its closing backslash.
std::wstring GetToolFolder(const std::wstring& driver, const std::wstring& vendor);
