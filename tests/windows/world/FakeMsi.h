// A gateway to packages that exist in a test only.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "catalogue/IMsiInterface.h"

struct FakePackage {
    std::map<std::wstring, std::wstring> properties;
    bool installed = false;
    bool upToDate = false;
    bool upgradable = false;
    bool minorUpgrade = false;
    std::uint32_t installCode = 0;
    std::uint32_t uninstallCode = 0;
    // Runs inside the installation, on the thread of its caller.
    std::function<void()> duringInstall;
};

// Packages are known by their file name. As with the library, a package that nobody knows has no properties
// and is not installed, and a property that a package lacks leaves the value as it was.
class FakeMsi : public IMsiInterface {
public:
    std::uint32_t InstallApp(std::wstring packagePath, InstallProgressCallback callback,
                             std::wstring commandDocument) override;
    std::uint32_t UninstallApp(std::wstring packagePath, InstallProgressCallback callback) override;
    void Cancel() override;
    std::uint32_t GetPropertyValue(std::wstring packagePath, std::wstring property, std::wstring language,
                                   std::wstring& value) override;
    bool IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                        bool& minorUpgrade) override;

    // What was asked for, in order: "install NAME", "uninstall NAME", "cancel". The questions are left out.
    std::vector<std::wstring> Calls() const;
    // The command document with which the package was installed last.
    std::wstring CommandOf(const std::wstring& name) const;
    // How often a package was asked for its state.
    std::size_t StateQuestions() const;
    // The languages in which properties were asked for.
    std::vector<std::wstring> Languages() const;

    // Set before the calls begin.
    std::map<std::wstring, FakePackage> packages;

private:
    void Keep(const std::wstring& call);
    const FakePackage* Find(const std::wstring& path) const;

    mutable std::mutex lock;
    std::vector<std::wstring> calls;
    std::map<std::wstring, std::wstring> commands;
    std::vector<std::wstring> languages;
    std::size_t stateQuestions = 0;
};
