#include "standins/PrinterQueue/FieldText.h"

#include "settings/TagDocument.h"

namespace printerqueue {
namespace {

// A value without "<" holds no tag.
std::wstring Escaped(std::wstring_view value) {
    std::wstring escaped;
    escaped.reserve(value.size());
    for (const wchar_t unit : value) {
        if (unit == L'%') {
            escaped += L"%p";
        } else if (unit == L'<') {
            escaped += L"%l";
        } else {
            escaped += unit;
        }
    }
    return escaped;
}

std::wstring Unescaped(std::wstring_view escaped) {
    std::wstring value;
    value.reserve(escaped.size());
    for (std::size_t at = 0; at < escaped.size(); ++at) {
        if (escaped[at] == L'%' && at + 1 < escaped.size()) {
            value += escaped[++at] == L'l' ? L'<' : L'%';
        } else {
            value += escaped[at];
        }
    }
    return value;
}

}  // namespace

std::wstring WriteField(std::wstring_view name, std::wstring_view value) {
    return TagDocument::MakeElement(name, Escaped(value));
}

std::wstring ReadField(std::wstring_view text, std::wstring_view name) {
    return Unescaped(TagDocument::ValueOf(text, name));
}

std::vector<std::wstring> ReadFields(std::wstring_view text, std::wstring_view name) {
    std::vector<std::wstring> values = TagDocument::ListValues(text, name);
    for (std::wstring& value : values) value = Unescaped(value);
    return values;
}

}  // namespace printerqueue
