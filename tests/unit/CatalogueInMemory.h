// A package tree that exists in memory alone, for what reads it.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "CommonLib/MsiCodes.h"
#include "catalogue/CatalogueSource.h"
#include "catalogue/IMsiInterface.h"
#include "tests/unit/RecordedLog.h"

using Properties = std::map<std::wstring, std::wstring>;

// What the system has of a package's product.
struct InstalledProduct {
    bool upToDate = false;
    bool upgradable = false;
};

// Packages and products by the packages' paths.
class PackagesInMemory : public IMsiInterface {
public:
    std::map<std::wstring, Properties> packages;
    std::map<std::wstring, InstalledProduct> products;

    std::uint32_t InstallApp(std::wstring, InstallProgressCallback, std::wstring) override { return 0; }
    std::uint32_t UninstallApp(std::wstring, InstallProgressCallback) override { return 0; }
    void Cancel() override {}
    std::uint32_t GetPropertyValue(std::wstring path, std::wstring property, std::wstring,
                                   std::wstring& value) override {
        const Properties& properties = packages.at(path);
        const auto found = properties.find(property);
        if (found == properties.end()) return MsiCode::PropertyNotFound;
        value = found->second;
        return MsiCode::Success;
    }
    bool IsAppInstalled(std::wstring path, bool& upToDate, bool& upgradable, bool&) override {
        const auto found = products.find(path);
        if (found == products.end()) return false;
        upToDate = found->second.upToDate;
        upgradable = found->second.upgradable;
        return true;
    }
};

class CatalogueInMemory : public testing::Test {
protected:
    CatalogueInMemory() { TheLog() = {}; }

    void Add(const std::wstring& path, Properties properties) {
        properties.emplace(L"ProductName", path.substr(path.rfind(L'\\') + 1));
        msi.packages[path] = std::move(properties);
    }

    CatalogueSource Source() {
        return {.msi = msi,
                .settings = settings,
                .localizer = localizer,
                .system = system,
                .listPackages = [this](const std::wstring& folder, const std::wstring& fileNames) {
                    return List(folder, fileNames);
                }};
    }

    PackagesInMemory msi;
    InstallSettings settings;
    Localizer localizer{settings, {.languageId = 0x409, .readFile = [](const std::wstring&) {
                                       return std::wstring(L"<LANGUAGE_ID>1033</LANGUAGE_ID>");
                                   }}};
    TargetSystem system{.name = L"WINDOWS_8", .isWindows8OrLater = true};

private:
    std::vector<std::wstring> List(const std::wstring& folder, const std::wstring& fileNames) const {
        std::vector<std::wstring> paths;
        for (const auto& [path, properties] : msi.packages) {
            const std::size_t end = path.rfind(L'\\') + 1;
            if (path.substr(0, end) != folder) continue;
            if (fileNames.empty() || fileNames.find(path.substr(end)) != std::wstring::npos)
                paths.push_back(path);
        }
        return paths;
    }
};
