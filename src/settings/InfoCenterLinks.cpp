// The operations of InstallSettings that compute the help link and its label.

#include "CommonLib/Logger.h"
#include "settings/DerivedNames.h"
#include "settings/InstallSettings.h"
#include "settings/Localizer.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextExpansion.h"

void InstallSettings::DeriveInfoCenterLinks() {
    std::vector<SeriesAndModel> printers;
    for (const std::wstring& device : GetDevices()) {
        printers.push_back({.series = TagDocument::ValueOf(device, Tag::PRINTER_SERIES_NAME),
                            .model = TagDocument::ValueOf(device, Tag::PRINTER_MODEL_NAME)});
    }
    const SeriesAndModel common = CommonSeries(printers);
    BuildInfoCenterLinks(common.model, common.series);
}

void InstallSettings::BuildInfoCenterLinks(const std::wstring& model, const std::wstring& series) {
    std::wstring link = GetString(Tag::INFOCENTER_LINK);
    std::wstring label;
    if (model.empty()) {
        label = Localizer::GetInstance().GetString(TextKey::INFOCENTER_LINK_LABEL);
        link += L"?loc=" + GetLanguageCode();
    } else {
        const std::wstring code = GetProductCode(model, series);
        link += L"?productCode=" + FormatCodeForLink(code) + L"&loc=" + GetLanguageCode();
        label = FormatWithArgument(
            Localizer::GetInstance().GetString(TextKey::DISCOVERY_INFOCENTER_LINK_LABEL), code);
    }
    SetString(Tag::INFOCENTER_SHORTCUT, label);
    SetString(Tag::EXACT_INFOCENTER_LINK, link);
}

std::wstring InstallSettings::GetProductCode(const std::wstring& model, const std::wstring& series) const {
    return ProductCodeFor(GetKeyedValues(Tag::MODEL_PRODUCT_CODE, L":"), model,
                          series.empty() ? GetString(Tag::PRINTER_NAME) : series);
}

std::wstring InstallSettings::FormatCodeForLink(const std::wstring& code) const {
    const auto formatted = FormatProductCode(code, GetString(Tag::OEM_NAME));
    if (!formatted)
        LogBasic(L"A product code ends with the brand and has no code behind it: " + code, LogLevel::Error);
    return formatted.value_or(L"");
}
