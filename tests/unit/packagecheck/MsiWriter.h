// Writes .msi files for tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Makes a database and runs statements of Windows Installer's SQL on it; a failure fails the test.
void WriteMsi(const std::filesystem::path& path, const std::vector<std::string>& statements);
