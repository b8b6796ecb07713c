// The driver packages of the tree that this system accepts.
#pragma once

#include <list>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/CatalogueSource.h"
#include "catalogue/IMsiInterface.h"
#include "catalogue/MSI_APP.h"

// Several records may share an identifier. Filled once at start; afterwards only flags and the status of
// records change. Safe on any thread.
class DriverInfo {
public:
    static DriverInfo& GetInstance();

    DriverInfo() = default;

    // Reads the Drivers folders and adds what this system accepts, by WIN8_DRVTYPES or WINXP_DRVTYPES.
    void PopulateDriverList(const CatalogueSource& source);
    // Drops the records; the accepted driver types stay.
    void Clear();

    // The path of the last record with that identifier, or empty.
    std::wstring GetDriverPath(const std::wstring& driverId) const;
    // Of the last record with that identifier, false without one.
    bool IsOmbrelSupported(const std::wstring& driverId) const;
    // Copies of all records, in the order in which drivers are installed.
    std::vector<MSI_APP> GetDrivers() const;
    // A copy of the first record with that identifier, or a record with empty fields.
    MSI_APP GetDriver(const std::wstring& driverId) const;

    // Selects every record with that identifier, or takes the selection back.
    void SelectDriver(const std::wstring& driverId, bool selected = true);
    // Selects the printer drivers with that identifier and takes the selection of all others back. Changes
    // nothing if there is no printer driver of that identifier.
    void SelectOnlyPrinterDriver(const std::wstring& driverId);
    // Notes in the record of that package whether this run has installed it, and its status.
    void RecordOutcome(const MSI_APP& outcome);

private:
    void Append(MSI_APP record);
    void LoadAcceptedDriverTypes(const CatalogueSource& source);
    bool ReadDriverProperties(IMsiInterface& msi, const std::wstring& language, MSI_APP& record) const;

    // Guards the list; the accepted types are settled before other threads exist.
    mutable std::mutex lock;
    // In the order of insertion, across identifiers too.
    std::list<MSI_APP> driverInfoList;
    std::unordered_map<std::wstring, std::vector<MSI_APP*>> byId;
    std::unordered_map<std::wstring, MSI_APP*> byPath;
    std::vector<std::wstring> acceptedDriverTypes;
};
