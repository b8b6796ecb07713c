#include "framework/DialogTemplate.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

// The beginning of an extended dialog template, as the resource compiler writes it. What follows is words:
// menu, class and title, and then the size of the letters.
#pragma pack(push, 2)
struct TemplateHead {
    WORD version;
    WORD signature;
    DWORD helpId;
    DWORD extendedStyle;
    DWORD style;
    WORD controls;
    short x;
    short y;
    short width;
    short height;
};
#pragma pack(pop)

template <class Type>
Type Read(const std::vector<BYTE>& bytes, std::size_t place) {
    Type value{};
    if (place + sizeof(value) <= bytes.size()) std::memcpy(&value, bytes.data() + place, sizeof(value));
    return value;
}

template <class Type>
void Write(std::vector<BYTE>& bytes, std::size_t place, Type value) {
    std::memcpy(bytes.data() + place, &value, sizeof(value));
}

// A number after the word 0xFFFF, or a text that ends with 0.
std::size_t PlaceAfterName(const std::vector<BYTE>& bytes, std::size_t place) {
    constexpr WORD number = 0xFFFF;
    if (Read<WORD>(bytes, place) == number) return place + 2 * sizeof(WORD);
    while (Read<WORD>(bytes, place) != 0) place += sizeof(WORD);
    return place + sizeof(WORD);
}

}  // namespace

DialogTemplate::DialogTemplate(UINT id) {
    const HMODULE module = GetModuleHandleW(nullptr);
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(module, resource);
    if (loaded == nullptr || SizeofResource(module, resource) < sizeof(TemplateHead)) return;
    const auto* const first = static_cast<const BYTE*>(LockResource(loaded));
    bytes.assign(first, first + SizeofResource(module, resource));
}

DWORD DialogTemplate::ExtendedStyle() const {
    return Read<TemplateHead>(bytes, 0).extendedStyle;
}

void DialogTemplate::SetExtendedStyle(DWORD style) {
    Write(bytes, offsetof(TemplateHead, extendedStyle), style);
}

std::size_t DialogTemplate::PlaceOfPoints() const {
    if ((Read<TemplateHead>(bytes, 0).style & DS_SETFONT) == 0) return 0;
    const std::size_t afterMenu = PlaceAfterName(bytes, sizeof(TemplateHead));
    const std::size_t place = PlaceAfterName(bytes, PlaceAfterName(bytes, afterMenu));
    return place + sizeof(WORD) <= bytes.size() ? place : 0;
}

void DialogTemplate::Grow(int to, int from) {
    const std::size_t place = PlaceOfPoints();
    if (place != 0) Write(bytes, place, static_cast<WORD>(Read<WORD>(bytes, place) * to / from));
}

SIZE DialogTemplate::SizeOnScreen() const {
    DialogTemplate bare = *this;
    Write<WORD>(bare.bytes, offsetof(TemplateHead, controls), 0);
    const HWND dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), bare.get(), nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    RECT area{};
    if (dialog != nullptr) GetWindowRect(dialog, &area);
    DestroyWindow(dialog);
    return {area.right - area.left, area.bottom - area.top};
}
