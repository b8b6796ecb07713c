#include "tools/PlanLines.h"

#include "CommonLib/TextUtilities.h"
#include "tools/Intention.h"

void AppendPlan(const std::vector<MSI_APP>& records, const std::wstring& indent,
                std::vector<std::wstring>& lines) {
    constexpr std::size_t nameWidth = 40;
    for (const MSI_APP& record : records) {
        std::wstring line = record.productName + L" " + record.productVersion;
        if (line.size() < nameWidth) line.resize(nameWidth, L' ');
        line.insert(0, indent);
        line.append(L"  ").append(WordsFor(IntentionFor(record)));
        line.append(L"  (").append(FileNameOf(record.msiPath)).append(L")");
        lines.push_back(line);
        AppendPlan(record.dependents, indent + L"    ", lines);
    }
}
