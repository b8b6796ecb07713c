// An exception that carries a system error code.
#pragma once

#include <cstdint>
#include <string>

#include "CommonLib/Exception.h"

class Win32Exception : public Exception {
public:
    // The file is the name under which the throwing source is known, such as "CommonLib/Mutex"; the line is
    // the caller's own.
    Win32Exception(std::wstring message, std::uint32_t code, std::wstring file,
                   std::int32_t line = __builtin_LINE());

    // "Win32(", the code in decimal and the system's words for it, or empty for code 0.
    // By design: the parenthesis is not closed.
    std::wstring getCodeText() const override;
};

// The system's English text for an error code on one line, or "Error getting message:" and a code in decimal.
std::wstring SystemMessage(std::uint32_t code);
