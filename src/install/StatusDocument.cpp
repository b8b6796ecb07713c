#include "install/StatusDocument.h"

#include "settings/TagDocument.h"

namespace {

void AddLine(std::wstring& document, std::size_t number, const std::wstring& name,
             const std::wstring& status) {
    std::wstring line;
    TagDocument::SetElement(line, L"NAME", name);
    TagDocument::SetElement(line, L"STATUS", status);
    TagDocument::SetElement(document, L"App " + std::to_wstring(number), line);
}

}  // namespace

std::wstring BuildStatusDocument(const DotNetResult& dotNet, const std::vector<MSI_APP>& statusList) {
    std::wstring document;
    std::size_t number = 0;
    if (dotNet.installed || dotNet.failed) {
        AddLine(document, number++, dotNet.name, dotNet.failed ? L"1" : L"0");
    }
    for (const auto& app : statusList) {
        AddLine(document, number++, app.productName, std::to_wstring(app.status));
    }
    return document;
}
