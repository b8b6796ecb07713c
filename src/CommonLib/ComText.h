// Owner of a text of COM's.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

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
