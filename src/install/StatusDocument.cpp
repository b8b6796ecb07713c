#include "install/StatusDocument.h"

#include "CommonLib/TextUtilities.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"

namespace {

constexpr std::size_t mostLines = 100;

std::wstring LineName(std::size_t number) {
    return L"App " + std::to_wstring(number);
}

void AddLine(std::wstring& document, std::size_t number, const std::wstring& name, PackageStatus status) {
    std::wstring line;
    TagDocument::SetElement(line, Tag::NAME, name);
    TagDocument::SetElement(line, Tag::STATUS, std::to_wstring(static_cast<std::int32_t>(status)));
    TagDocument::SetElement(document, LineName(number), line);
}

}  // namespace

std::wstring BuildStatusDocument(const DotNetResult& dotNet, const std::vector<MSI_APP>& statusList) {
    std::wstring document;
    std::size_t number = 0;
    if (dotNet.installed || dotNet.failed) {
        AddLine(document, number++, dotNet.name, dotNet.failed ? PackageStatus::Failed : PackageStatus::Done);
    }
    for (const auto& app : statusList) AddLine(document, number++, app.productName, app.status);
    return document;
}

std::vector<StatusLine> ReadStatusDocument(std::wstring_view document) {
    std::vector<StatusLine> lines;
    std::wstring element;
    for (std::size_t number = 0; number < mostLines; ++number) {
        if (!TagDocument::FindValue(document, LineName(number), element)) break;
        const std::int32_t code = LeadingInteger(TagDocument::ValueOf(element, Tag::STATUS));
        lines.push_back(
            {.name = TagDocument::ValueOf(element, Tag::NAME), .status = static_cast<PackageStatus>(code)});
    }
    return lines;
}
