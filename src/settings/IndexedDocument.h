// A tag document for many operations in a row.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// A tag document for many operations in a row. Each returns exactly the result of its namesake in
// TagDocument, but finds its tags in an index instead of searching the text, so that a run of operations
// takes time in proportion to what it reads and changes. Only for a name that holds a "<" or ">" the text is
// searched. An object belongs to one thread.
class IndexedDocument {
public:
    explicit IndexedDocument(std::wstring document);

    // Returns the value of the first element of that name, or the empty text where there is none.
    std::wstring ValueOf(std::wstring_view name);

    // Returns true if ValueOf would not be empty, without reading the value.
    bool HasValue(std::wstring_view name);

    void RemoveElement(std::wstring_view name);

    // Adds an element, made by MakeElement, at the end.
    void Append(std::wstring_view element);

    // Returns the document as it stands.
    std::wstring Text() const;

private:
    // A "<" or ">" of the text, chained to its neighbours; a removed one leaves the chain.
    struct Sign {
        std::size_t position = 0;
        std::size_t previous = 0;
        std::size_t next = 0;
        bool opens = false;
        bool removed = false;
        bool hasWord = false;  // A blank follows before the next sign, so attributes may follow.
    };
    struct Span {
        std::size_t start = 0;
        std::size_t end = 0;
    };
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::wstring_view key) const { return std::hash<std::wstring_view>{}(key); }
    };
    // Signs as a heap whose front is the first in the document; removed ones are dropped at the front.
    using SignHeap = std::vector<std::size_t>;
    using SignIndex = std::unordered_map<std::wstring, SignHeap, TextHash, std::equal_to<>>;

    void AddSignsFrom(std::size_t start);
    void IndexFurther();
    void AddSign(std::size_t position);
    void IndexTag(std::size_t sign);
    void IndexWord(std::size_t sign, std::size_t from);
    std::size_t FirstSign(std::wstring_view key);
    std::size_t FirstIndexedSign(std::wstring_view key);

    bool FindValue(std::wstring_view name, Span& value);
    bool FindAttributeTag(std::wstring_view name, std::size_t& tagEnd);
    bool BeginsWithWords(std::size_t sign, std::wstring_view name) const;
    void Remove(std::size_t first, std::size_t last);
    void Join(std::size_t left, std::size_t seam);
    void Drop(Span span);
    Span NextPiece(Span span) const;
    std::wstring LiveText(Span span) const;
    std::size_t EndOfTagText(std::size_t sign) const;

    std::wstring text;
    std::vector<Sign> signs;
    // Signs are indexed as far as they have been asked for: whoever goes through a document from its front
    // has a small index. Nothing but a removal up to the end changes what is not indexed yet.
    std::size_t firstUnindexed = 1;
    SignIndex tags;                              // by the whole text of the tag
    SignIndex words;                             // by the text in front of the first blank
    std::map<std::size_t, std::size_t> dropped;  // start and end of what has been removed from the text
};
