#include "settings/TagDocument.h"

#include "settings/TagSearch.h"

namespace {

// The text from start up to the close tag, or all the rest where the close tag lies in front of start.
std::wstring_view ValueFrom(std::wstring_view document, std::size_t start, std::size_t close) {
    return close < start ? document.substr(start) : document.substr(start, close - start);
}

bool FindAttributeValue(std::wstring_view document, std::wstring_view name, std::size_t close,
                        std::wstring& value) {
    const std::size_t open = FindAttributeTag(document, name);
    if (open == nowhere) return false;
    const std::size_t end = document.find(L'>', open);
    if (end == nowhere) return false;
    value = ValueFrom(document, end + 1, close);
    return true;
}

std::size_t OpenTagLength(std::wstring_view name) {
    return name.size() + 2;
}
std::size_t CloseTagLength(std::wstring_view name) {
    return name.size() + 3;
}

}  // namespace

namespace TagDocument {

bool FindValue(std::wstring_view document, std::wstring_view name, std::wstring& value) {
    const auto tags = FindTags(document, name);
    if (!tags.BothFound()) {
        return tags.close != nowhere && FindAttributeValue(document, name, tags.close, value);
    }
    value = ValueFrom(document, tags.open + OpenTagLength(name), tags.close);
    return true;
}

std::wstring ValueOf(std::wstring_view document, std::wstring_view name) {
    std::wstring value;
    FindValue(document, name, value);
    return value;
}

std::wstring MakeElement(std::wstring_view name, std::wstring_view value) {
    std::wstring element;
    element.reserve(OpenTagLength(name) + value.size() + CloseTagLength(name));
    element.append(L"<").append(name).append(L">").append(value);
    return element.append(L"</").append(name).append(L">");
}

void RemoveElement(std::wstring& document, std::wstring_view name) {
    const auto tags = FindTags(document, name);
    if (!tags.BothFound()) return;
    const std::size_t end = tags.close < tags.open ? nowhere : tags.close + CloseTagLength(name) - tags.open;
    document.erase(tags.open, end);
}

void SetElement(std::wstring& document, std::wstring_view name, std::wstring_view value) {
    if (name.empty()) return;
    const std::wstring element = MakeElement(name, value);  // The arguments may lie in the document.
    RemoveElement(document, name);
    document += element;
}

std::vector<std::wstring> ListValues(std::wstring_view document, std::wstring_view name) {
    std::vector<std::wstring> values;
    while (!document.empty()) {
        const auto tags = FindTags(document, name);
        if (!tags.BothFound()) break;
        values.emplace_back(ValueFrom(document, tags.open + OpenTagLength(name), tags.close));
        document.remove_prefix(tags.close + CloseTagLength(name));
    }
    return values;
}

}  // namespace TagDocument
