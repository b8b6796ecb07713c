// The stand-in library in a test.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "CommonLib/PackageLibraries.h"

// The library as a program loads it: from its file, each export by name.
struct BrevantoLibrary {
    decltype(&MsiInitialize) initialize;
    decltype(&MsiEnableInstallLog) enableInstallLog;
    decltype(&MsiInstallApp) installApp;
    decltype(&MsiUninstallApp) uninstallApp;
    decltype(&MsiCancel) cancel;
    decltype(&MsiGetProperties) getProperties;
    decltype(&MsiIsAppInstalledByLang) isAppInstalled;
};

struct PackageState {
    bool installed = false;
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;

    friend bool operator==(const PackageState&, const PackageState&) = default;
};
void PrintTo(const PackageState& state, std::ostream* stream);

// A system on which none of the test packages is installed, neither before nor after a test.
class LibraryTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The full path of a test package.
    static std::wstring Package(const std::wstring& fileName);
    // Where a test package puts a file.
    static std::wstring InstalledFile(const std::wstring& product);
    static bool Exists(const std::wstring& path);
    // What a test package has noted of its command line, empty if nothing.
    static std::wstring Noted(const std::wstring& id, const std::wstring& property);

    std::uint32_t Install(const std::wstring& fileName, const std::wstring& commandDocument = {});
    std::uint32_t Uninstall(const std::wstring& fileName);
    PackageState State(const std::wstring& fileName);
    // Waits, at most half a minute, until the condition holds.
    static bool WaitFor(const std::function<bool()>& condition);

    // What the callback answers with; it records each document that it is given.
    static void AnswerWith(std::function<std::int32_t(const std::wstring&)> answer);
    static std::vector<std::wstring> Messages();
    static std::vector<int> Percentages();

    BrevantoLibrary library{};
};
