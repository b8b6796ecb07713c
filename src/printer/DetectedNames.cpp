#include "printer/DetectedNames.h"

#include <utility>

#include "settings/TagDocument.h"
#include "settings/TagNames.h"

void ApplyDetectedName(InstallSettings& settings, const DriverInfo& drivers,
                       const std::wstring& printerName) {
    std::vector<std::wstring> named = settings.GetDevices();
    for (std::wstring& device : named) {
        std::wstring detect;
        if (!TagDocument::FindValue(device, Tag::DETECT_PRINTER, detect)) continue;
        if (detect == L"true" || detect == L"True" || detect == L"TRUE") {
            const std::wstring driverId = TagDocument::ValueOf(device, Tag::DRIVER_ID);
            const std::wstring stream = drivers.GetDriver(driverId).streamDisplayName;
            TagDocument::SetElement(
                device, Tag::PRINTER_NAME,
                stream.empty() ? printerName : std::wstring(printerName).append(L" ").append(stream));
        }
        TagDocument::RemoveElement(device, Tag::DETECT_PRINTER);
    }
    settings.SetDevices(std::move(named));
}
