// What is written at the end of a file from now on.
#pragma once

#include <cstdint>
#include <string>

namespace rollout {

// The file need not exist. It is opened for each question and kept from nobody.
class LogTail {
public:
    // Remembers where the file ends now.
    explicit LogTail(std::wstring filePath);

    // Returns the bytes that were appended since the last question, from the start of a file that is shorter
    // now.
    std::string ReadNew();

private:
    std::wstring path;
    std::uint64_t position = 0;
};

}  // namespace rollout
