// The names of tags, by what a tag holds: an operation that does not fit a tag does not compile.
#pragma once

#include <string_view>

// The name of an element of a tag document; it stands for its text wherever a document is worked on. The text
// must outlive the object.
class TagName {
public:
    explicit constexpr TagName(std::wstring_view text) : name(text) {}

    // By design: a name is what the operations on documents take.
    constexpr operator std::wstring_view() const noexcept { return name; }

private:
    std::wstring_view name;
};

// A text of the settings.
class TextTag : public TagName {
public:
    using TagName::TagName;
};

// A flag of the settings: "true" in any case or "1".
class FlagTag : public TagName {
public:
    using TagName::TagName;
};

// A text of the settings that stands for yes in one form alone.
class StrictFlagTag : public TextTag {
public:
    constexpr StrictFlagTag(std::wstring_view text, std::wstring_view yesText)
        : TextTag(text), yes(yesText) {}

    constexpr std::wstring_view Yes() const noexcept { return yes; }

private:
    std::wstring_view yes;
};

// A tag that the settings may hold many times.
class ListTag : public TagName {
public:
    using TagName::TagName;
};

// A tag of some other document than the settings.
class DocumentTag : public TagName {
public:
    using TagName::TagName;
};
