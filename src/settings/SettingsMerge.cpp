#include "settings/SettingsMerge.h"

#include "settings/IndexedDocument.h"
#include "settings/TagDocument.h"

void MergeDocument(std::wstring& document, std::wstring& mergedRecord, std::wstring_view incoming) {
    IndexedDocument rest{std::wstring(incoming)};
    IndexedDocument target(document);
    IndexedDocument merged(mergedRecord);
    for (const auto& name : TagDocument::ListElementNames(incoming)) {
        const std::wstring element = TagDocument::MakeElement(name, rest.ValueOf(name));
        if (target.HasValue(name) && !merged.HasValue(name)) {
            target.RemoveElement(name);
            merged.RemoveElement(name);
        }
        target.Append(element);
        merged.Append(element);
        rest.RemoveElement(name);
    }
    document = target.Text();
    mergedRecord = merged.Text();
}
