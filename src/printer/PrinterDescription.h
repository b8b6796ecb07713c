// Describes a driver's printer to the driver's installation.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "catalogue/MSI_APP.h"
#include "printer/DerivedNames.h"
#include "settings/InstallSettings.h"

// One object describes the drivers of one run, on one thread: what one driver set stays for the next. The
// settings are read at the time of each call and must outlive the object.
//
// Reads ADD_PORT, CONFIG_APPLY_FUTURE, CONFIG_EXE_PATH, DEFAULT_PRINTER_NAME, DRIVERCONFIG_PATH, HOST_NAME,
// INSTALL_FROM_CONFIG, IPADDRESS, MODEL_NAME, MODEL_NAME_FAX, NETWORK_PATH, OEM, OEM_NAME, OMBREL_DESC,
// PORT_NAME, PORT_TYPE, PO_NAME_FROM_DISCOVERY, PRINTER_NAME, SET_DEFAULT, UPD, WEBDRIVERVER.
class PrinterDescription {
public:
    // Says whether the system has a port of exactly that name.
    using PortLookup = std::function<bool(const std::wstring& portName)>;

    PrinterDescription(const InstallSettings& store, PortLookup isSystemPort)
        : settings(store), portExists(std::move(isSystemPort)) {}

    // Returns the PRINTER_INFO element that says what the installation of this driver is to set up.
    std::wstring BuildPrinterInfo(const MSI_APP& driver);
    std::wstring GetPrinterName(const MSI_APP& driver) const;
    std::wstring GetDriverProductName(const MSI_APP& driver) const;
    // Returns false for a port that exists already or that needs none.
    bool PortNeedsAdding(const std::wstring& portType, const std::wstring& portName) const;

private:
    NameInputs NameInputsFor(const MSI_APP& driver) const;
    std::wstring GetModelName(bool fax) const;
    std::wstring GetDevicesForDriver(const std::wstring& driverId) const;
    std::wstring BuildDeviceElement(std::wstring device) const;
    std::wstring SharedAddressElement() const;
    void FillCurrentDevice(const MSI_APP& driver);
    void CopyToCurrentDevice(std::initializer_list<TextTag> tags);

    const InstallSettings& settings;
    PortLookup portExists;
    std::wstring currentDevice;
};
