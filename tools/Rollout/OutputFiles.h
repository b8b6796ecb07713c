// The files that a rollout leaves.
#pragma once

#include <string>

namespace rollout {

// Puts the bytes into the file, in place of what it held; whoever reads it meanwhile sees all or nothing.
// Returns false if that fails.
[[nodiscard]] bool WriteWholeFile(const std::wstring& path, const std::string& bytes);

// Copies the logs of that folder, which ends in a backslash, into the target folder, which is made, and puts
// the report beside them. Gives up after two minutes, since a server may not answer. Returns what went wrong,
// empty if nothing.
std::wstring CollectFiles(const std::wstring& target, const std::wstring& logFolder,
                          const std::string& report);

}  // namespace rollout
