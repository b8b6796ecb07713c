// Owners of what COM hands out.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

// COM on this thread, from here to the end of this object's life.
class ComApartment {
public:
    // Takes flags of COINIT.
    explicit ComApartment(DWORD flags) : result(CoInitializeEx(nullptr, flags)) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (SUCCEEDED(result)) CoUninitialize();
    }

    // A thread that somebody else has set up otherwise serves as well.
    bool IsUsable() const { return SUCCEEDED(result) || result == RPC_E_CHANGED_MODE; }

private:
    HRESULT result;
};

class ComText {
public:
    ComText() = default;
    explicit ComText(const std::wstring& content)
        : text(SysAllocStringLen(content.data(), static_cast<UINT>(content.size()))) {}
    ComText(const ComText&) = delete;
    ComText& operator=(const ComText&) = delete;
    ~ComText() { SysFreeString(text); }

    BSTR get() const { return text; }
    // For one call that hands a text out.
    BSTR* put() { return &text; }
    std::wstring str() const { return {text, SysStringLen(text)}; }

private:
    BSTR text = nullptr;
};

class Variant {
public:
    Variant() = default;
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value); }

    // For one call that hands a value out.
    VARIANT* put() { return &value; }
    // The object in it, or null for any other value.
    IUnknown* object() const {
        return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN ? value.punkVal : nullptr;
    }

private:
    VARIANT value{};
};
