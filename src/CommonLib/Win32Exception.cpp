#include "CommonLib/Win32Exception.h"

#include <windows.h>

#include <array>
#include <utility>

#include "CommonLib/TextUtilities.h"

Win32Exception::Win32Exception(std::wstring text, std::uint32_t errorCode, std::wstring source,
                               std::int32_t sourceLine)
    : Exception(std::move(text), static_cast<std::int32_t>(errorCode), std::move(source), sourceLine) {}

std::wstring Win32Exception::getCodeText() const {
    const auto errorCode = static_cast<std::uint32_t>(getCode());
    return errorCode == 0 ? std::wstring()
                          : L"Win32(" + ToDecimalString(errorCode) + SystemMessage(errorCode);
}

std::wstring SystemMessage(std::uint32_t code) {
    constexpr DWORD englishUnitedStates = 1033;
    std::array<wchar_t, 256> buffer{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, englishUnitedStates, buffer.data(), buffer.size(), nullptr);
    if (length == 0) return L"Error getting message:" + ToDecimalString(GetLastError());
    std::wstring text(buffer.data(), length);
    std::erase(text, L'\r');
    std::erase(text, L'\n');
    return text;
}
