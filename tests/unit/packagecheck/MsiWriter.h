// Writes .msi files for tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Makes a database and runs statements of Windows Installer's SQL on it; a failure fails the test. Its
// summary says x64;1033, 200 and {00000000-0000-0000-0000-000000000001}.
void WriteMsi(const std::filesystem::path& path, const std::vector<std::string>& statements);
