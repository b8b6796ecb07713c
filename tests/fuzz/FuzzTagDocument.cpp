#include "settings/IndexedDocument.h"
#include "settings/TagDocument.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

constexpr std::size_t none = std::wstring::npos;

// The tags of one name as a plain search finds them.
struct PlainTags {
    PlainTags(const std::wstring& document, const std::wstring& name)
        : open(document.find(L'<' + name + L'>')), close(document.find(L"</" + name + L'>')) {}

    bool BothFound() const { return open != none && close != none; }

    std::size_t open;
    std::size_t close;
};

void CheckValue(const std::wstring& document, const std::wstring& name) {
    const PlainTags tags(document, name);
    std::wstring value = L"before";
    const bool found = TagDocument::FindValue(document, name, value);
    Require(found || value == L"before");
    Require(found || !tags.BothFound());
    if (!tags.BothFound()) return;
    const std::size_t start = tags.open + name.size() + 2;
    Require(value == document.substr(start, tags.close < start ? none : tags.close - start));
}

void CheckRemoval(const std::wstring& document, const std::wstring& name) {
    const PlainTags tags(document, name);
    std::wstring left = document;
    TagDocument::RemoveElement(left, name);
    std::wstring expected = document;
    const std::size_t after = tags.close + name.size() + 3;
    if (tags.BothFound()) expected.erase(tags.open, tags.close < tags.open ? none : after - tags.open);
    Require(left == expected);

    IndexedDocument indexed(document);
    indexed.RemoveElement(name);
    Require(indexed.Text() == expected);
    Require(indexed.ValueOf(name) == TagDocument::ValueOf(expected, name));
}

void CheckSetting(std::wstring document, const std::wstring& name, const std::wstring& value) {
    const std::wstring element = TagDocument::MakeElement(name, value);
    std::wstring expected = document;
    if (!name.empty()) {
        TagDocument::RemoveElement(expected, name);
        expected += element;
    }
    TagDocument::SetElement(document, name, value);
    Require(document == expected);
}

void CheckList(const std::wstring& document, const std::wstring& name) {
    std::vector<std::wstring> values;
    for (std::wstring rest = document; !rest.empty();) {
        const PlainTags tags(rest, name);
        if (!tags.BothFound()) break;
        const std::size_t start = tags.open + name.size() + 2;
        values.push_back(rest.substr(start, tags.close < start ? none : tags.close - start));
        rest.erase(0, tags.close + name.size() + 3);
    }
    Require(TagDocument::ListValues(document, name) == values);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = PartsOf(data, size, 3);
    CheckValue(parts[2], parts[0]);
    CheckRemoval(parts[2], parts[0]);
    CheckSetting(parts[2], parts[0], parts[1]);
    CheckList(parts[2], parts[0]);
    return 0;
}
