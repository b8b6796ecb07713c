// The text size that the user has chosen in the settings for accessibility.
#pragma once

#include <windows.h>

class UserTextSize {
public:
    UserTextSize() = default;
    explicit UserTextSize(DWORD percent) { Choose(percent); }
    UserTextSize(const UserTextSize&) = delete;
    UserTextSize& operator=(const UserTextSize&) = delete;
    ~UserTextSize() { Forget(); }

    void Choose(DWORD percent) const { Write(REG_DWORD, &percent, sizeof(percent)); }
    // Writes what the settings would not.
    void Write(DWORD type, const void* data, DWORD size) const {
        RegSetKeyValueW(HKEY_CURRENT_USER, key, value, type, data, size);
    }
    void Forget() const { RegDeleteKeyValueW(HKEY_CURRENT_USER, key, value); }

private:
    static constexpr wchar_t key[] = L"Software\\Microsoft\\Accessibility";
    static constexpr wchar_t value[] = L"TextScaleFactor";
};
