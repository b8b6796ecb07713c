#include "settings/IndexedDocument.h"

#include <algorithm>
#include <utility>

#include "settings/TagDocument.h"
#include "settings/TagSearch.h"

namespace {

constexpr std::size_t head = 0;  // The sign in front of the first and after the last one, outside the text.

bool IsSimple(std::wstring_view name) {
    return name.find_first_of(L"<>") == std::wstring_view::npos;
}

}  // namespace

IndexedDocument::IndexedDocument(std::wstring document) : text(std::move(document)), signs(1) {
    AddSignsFrom(0);
}

std::wstring IndexedDocument::ValueOf(std::wstring_view name) {
    if (!IsSimple(name)) return TagDocument::ValueOf(Text(), name);
    Span value;
    return FindValue(name, value) ? LiveText(value) : std::wstring();
}

bool IndexedDocument::HasValue(std::wstring_view name) {
    if (!IsSimple(name)) return !ValueOf(name).empty();
    Span value;
    if (!FindValue(name, value)) return false;
    const Span piece = NextPiece(value);
    return piece.start < piece.end;
}

void IndexedDocument::RemoveElement(std::wstring_view name) {
    if (!IsSimple(name)) {
        std::wstring remaining = Text();
        TagDocument::RemoveElement(remaining, name);
        *this = IndexedDocument(std::move(remaining));
        return;
    }
    const std::wstring closeTag = L'/' + std::wstring(name);
    const std::size_t open = FirstSign(name);
    const std::size_t close = FirstSign(closeTag);
    if (open == nowhere || close == nowhere) return;
    if (close < open) Drop({.start = signs[open].position, .end = text.size()});
    Remove(open, close < open ? signs[head].previous : signs[close].next);
    // The index forgets what is not asked for again.
    FirstIndexedSign(name);
    FirstIndexedSign(closeTag);
}

void IndexedDocument::Append(std::wstring_view element) {
    const std::size_t start = text.size();
    text += element;
    AddSignsFrom(start);
}

std::wstring IndexedDocument::Text() const {
    return LiveText({.start = 0, .end = text.size()});
}

void IndexedDocument::AddSignsFrom(std::size_t start) {
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == L'<' || text[i] == L'>') AddSign(i);
    }
}

// A step is long beside the look-up that follows it, and short beside a document.
void IndexedDocument::IndexFurther() {
    constexpr std::size_t step = 16;
    const std::size_t end = std::min(firstUnindexed + step, signs.size());
    for (; firstUnindexed < end; ++firstUnindexed) {
        const Sign& sign = signs[firstUnindexed];
        if (!sign.opens || sign.removed) continue;
        IndexTag(firstUnindexed);
        IndexWord(firstUnindexed, sign.position + 1);
    }
}

void IndexedDocument::AddSign(std::size_t position) {
    const std::size_t last = signs[head].previous;
    signs[last].next = signs.size();
    signs[head].previous = signs.size();
    signs.push_back({.position = position, .previous = last, .next = head, .opens = text[position] == L'<'});
}

void IndexedDocument::IndexTag(std::size_t sign) {
    const std::size_t next = signs[sign].next;
    if (next == head || signs[next].opens) return;
    auto& heap = tags[LiveText({.start = signs[sign].position + 1, .end = signs[next].position})];
    heap.push_back(sign);
    std::push_heap(heap.begin(), heap.end(), std::greater<>());
}

void IndexedDocument::IndexWord(std::size_t sign, std::size_t from) {
    const std::size_t end = EndOfTagText(sign);
    for (Span piece = NextPiece({.start = from, .end = end}); piece.start < piece.end;
         piece = NextPiece({.start = piece.end, .end = end})) {
        const auto live = std::wstring_view(text).substr(piece.start, piece.end - piece.start);
        const std::size_t blank = live.find(L' ');
        if (blank == std::wstring_view::npos) continue;
        auto& heap = words[LiveText({.start = signs[sign].position + 1, .end = piece.start + blank})];
        heap.push_back(sign);
        std::push_heap(heap.begin(), heap.end(), std::greater<>());
        signs[sign].hasWord = true;
        return;
    }
}

std::size_t IndexedDocument::FirstSign(std::wstring_view key) {
    std::size_t sign = FirstIndexedSign(key);
    for (; sign == nowhere && firstUnindexed < signs.size(); sign = FirstIndexedSign(key)) IndexFurther();
    return sign;
}

std::size_t IndexedDocument::FirstIndexedSign(std::wstring_view key) {
    const auto entry = tags.find(key);
    if (entry == tags.end()) return nowhere;
    SignHeap& heap = entry->second;
    while (!heap.empty() && signs[heap.front()].removed) {
        std::pop_heap(heap.begin(), heap.end(), std::greater<>());
        heap.pop_back();
    }
    if (!heap.empty()) return heap.front();
    tags.erase(entry);
    return nowhere;
}

bool IndexedDocument::FindValue(std::wstring_view name, Span& value) {
    const std::size_t close = FirstSign(L'/' + std::wstring(name));
    if (close == nowhere) return false;
    const std::size_t open = FirstSign(name);
    std::size_t tagEnd = open == nowhere ? nowhere : signs[open].next;
    if (open == nowhere && !FindAttributeTag(name, tagEnd)) return false;
    value.start = signs[tagEnd].position + 1;
    value.end = signs[close].position < value.start ? text.size() : signs[close].position;
    return true;
}

// All tags that share the first word of the name are looked at, since the name may hold blanks of its own.
bool IndexedDocument::FindAttributeTag(std::wstring_view name, std::size_t& tagEnd) {
    const auto entry = words.find(name.substr(0, name.find(L' ')));
    if (entry == words.end()) return false;
    std::size_t open = nowhere;
    for (const std::size_t sign : entry->second) {
        if (sign < open && !signs[sign].removed && BeginsWithWords(sign, name)) open = sign;
    }
    if (open == nowhere) return false;
    for (tagEnd = signs[open].next; tagEnd != head && signs[tagEnd].opens;) tagEnd = signs[tagEnd].next;
    return tagEnd != head;
}

bool IndexedDocument::BeginsWithWords(std::size_t sign, std::wstring_view name) const {
    if (name.find(L' ') == std::wstring_view::npos) return true;
    const std::wstring tag = LiveText({.start = signs[sign].position + 1, .end = EndOfTagText(sign)});
    return tag.size() > name.size() && tag.compare(0, name.size(), name) == 0 && tag[name.size()] == L' ';
}

void IndexedDocument::Remove(std::size_t first, std::size_t last) {
    const std::size_t left = signs[first].previous;
    const std::size_t right = signs[last].next;
    const std::size_t seam = signs[last].position + 1;
    for (std::size_t sign = first; sign != right; sign = signs[sign].next) signs[sign].removed = true;
    signs[left].next = right;
    signs[right].previous = left;
    Drop({.start = signs[first].position, .end = seam});
    Join(left, seam);
}

// What was removed may have parted a tag: the text in front of it and that after it now belong together.
void IndexedDocument::Join(std::size_t left, std::size_t seam) {
    if (!signs[left].opens) return;
    IndexTag(left);
    if (!signs[left].hasWord) IndexWord(left, seam);
}

void IndexedDocument::Drop(Span span) {
    auto range = dropped.lower_bound(span.start);
    if (range != dropped.begin() && std::prev(range)->second >= span.start) --range;
    while (range != dropped.end() && range->first <= span.end) {
        span = {.start = std::min(span.start, range->first), .end = std::max(span.end, range->second)};
        range = dropped.erase(range);
    }
    dropped[span.start] = span.end;
}

// The first piece of the span that has not been removed; empty at the end of the span where there is none.
IndexedDocument::Span IndexedDocument::NextPiece(Span span) const {
    const auto following = dropped.upper_bound(span.start);
    if (following != dropped.begin()) span.start = std::max(span.start, std::prev(following)->second);
    if (following != dropped.end()) span.end = std::min(span.end, following->first);
    return {.start = std::min(span.start, span.end), .end = span.end};
}

std::wstring IndexedDocument::LiveText(Span span) const {
    std::wstring live;
    for (Span piece = NextPiece(span); piece.start < piece.end;
         piece = NextPiece({.start = piece.end, .end = span.end})) {
        live.append(text, piece.start, piece.end - piece.start);
    }
    return live;
}

std::size_t IndexedDocument::EndOfTagText(std::size_t sign) const {
    const std::size_t next = signs[sign].next;
    return next == head ? text.size() : signs[next].position;
}
