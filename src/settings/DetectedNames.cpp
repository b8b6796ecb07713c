// The operation of InstallSettings that names devices after the printer that was found.

#include <utility>

#include "catalogue/DriverInfo.h"
#include "settings/InstallSettings.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

void InstallSettings::ApplyDetectedName(const std::wstring& printerName) {
    std::vector<std::wstring> named = GetDevices();
    for (std::wstring& device : named) {
        std::wstring detect;
        if (!TagDocument::FindValue(device, Tag::DETECT_PRINTER, detect)) continue;
        if (detect == L"true" || detect == L"True" || detect == L"TRUE") {
            const std::wstring driverId = TagDocument::ValueOf(device, Tag::DRIVER_ID);
            const std::wstring stream = DriverInfo::GetInstance().GetDriver(driverId).streamDisplayName;
            TagDocument::SetElement(
                device, Tag::PRINTER_NAME,
                stream.empty() ? printerName : std::wstring(printerName).append(L" ").append(stream));
        }
        TagDocument::RemoveElement(device, Tag::DETECT_PRINTER);
    }
    SetDevices(std::move(named));
}
