// What the program throws.
#pragma once

#include <cstdint>
#include <string>

// A failure with a message, a code and the place in the source that met it. Thrown by value and caught by
// reference, close to the call that failed.
class Exception {
public:
    // A code of 0 stands for none, an empty file for an unknown place.
    explicit Exception(std::wstring message, std::int32_t code = 0, std::wstring file = {},
                       std::int32_t line = 0);
    Exception(const Exception&) = default;
    Exception(Exception&&) = default;
    Exception& operator=(const Exception&) = default;
    Exception& operator=(Exception&&) = default;
    virtual ~Exception() = default;

    // Returns the code as text for a log, or the empty text where there is none.
    virtual std::wstring getCodeText() const;
    virtual std::int32_t getCode() const;
    virtual std::wstring getMessage() const;

    // Returns place, message and code text in one line, without the pieces that are not known.
    std::wstring getFullText() const;

private:
    std::wstring message;
    std::int32_t code;
    std::wstring file;
    std::int32_t line;
};
