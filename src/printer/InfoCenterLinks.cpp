#include "printer/InfoCenterLinks.h"

#include "CommonLib/Log.h"
#include "printer/DerivedNames.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextExpansion.h"
#include "settings/TextKeys.h"

namespace {

std::wstring GetProductCode(const InstallSettings& settings, const std::wstring& model,
                            const std::wstring& series) {
    return ProductCodeFor(settings.GetKeyedValues(Tag::MODEL_PRODUCT_CODE, L":"), model,
                          series.empty() ? settings.GetString(Tag::PRINTER_NAME) : series);
}

std::wstring CodeForLink(const InstallSettings& settings, const std::wstring& code) {
    const auto formatted = FormatProductCode(code, settings.GetString(Tag::OEM_NAME));
    if (!formatted)
        LogBasic(L"A product code ends with the brand and has no code behind it: " + code, LogLevel::Error);
    return formatted.value_or(L"");
}

}  // namespace

void DeriveInfoCenterLinks(InstallSettings& settings, const Localizer& localizer) {
    std::vector<SeriesAndModel> printers;
    for (const std::wstring& device : settings.GetDevices()) {
        printers.push_back({.series = TagDocument::ValueOf(device, Tag::PRINTER_SERIES_NAME),
                            .model = TagDocument::ValueOf(device, Tag::PRINTER_MODEL_NAME)});
    }
    const SeriesAndModel common = CommonSeries(printers);
    BuildInfoCenterLinks(settings, localizer, common.model, common.series);
}

void BuildInfoCenterLinks(InstallSettings& settings, const Localizer& localizer, const std::wstring& model,
                          const std::wstring& series) {
    std::wstring link = settings.GetString(Tag::INFOCENTER_LINK);
    std::wstring label;
    if (model.empty()) {
        label = localizer.GetString(TextKey::INFOCENTER_LINK_LABEL);
        link += L"?loc=" + localizer.GetSystemLanguageCode();
    } else {
        const std::wstring code = GetProductCode(settings, model, series);
        link += L"?productCode=" + CodeForLink(settings, code) + L"&loc=" + localizer.GetSystemLanguageCode();
        label = FormatWithArgument(localizer.GetString(TextKey::DISCOVERY_INFOCENTER_LINK_LABEL), code);
    }
    settings.SetString(Tag::INFOCENTER_SHORTCUT, label);
    settings.SetString(Tag::EXACT_INFOCENTER_LINK, link);
}
