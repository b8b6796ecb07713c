#include "catalogue/MsiInterface.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/MsiCodes.h"
#include "CommonLib/PackageLibraries.h"
#include "CommonLib/Vendor.h"
#include "framework/SystemLibrary.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"

namespace {

constexpr std::uint32_t firstCapacity = 2048;
// In characters: far more than the properties of any package.
constexpr std::uint32_t largestDocument = 1u << 26;

std::uint32_t Length(const std::wstring& text) {
    return static_cast<std::uint32_t>(text.size());
}

}  // namespace

MsiInterface* MsiInterface::GetInstance() {
    static std::once_flag once;
    static MsiInterface* instance = nullptr;
    std::call_once(once, [] {
        try {
            instance =
                std::make_unique<MsiInterface>(GetExeDirectory() + L"\\Brevanto.dll",
                                               InstallSettings::GetInstance(), Localizer::GetInstance())
                    .release();
        } catch (const std::bad_alloc&) {
            instance = nullptr;
        }
    });
    return instance;
}

MsiInterface::MsiInterface(const std::wstring& libraryPath, const InstallSettings& store,
                           const Localizer& texts)
    : settings(store), localizer(texts), library(LoadPackageLibrary(libraryPath)) {
    if (!library) {
        LogBasic(L"Failed to load Brevanto.dll!", LogLevel::Error);
        return;
    }
    const auto initialize =
        Find<decltype(&MsiInitialize)>("MsiInitialize", L"Failed to find MsiInitialize method");
    if (initialize != nullptr) initialize();
}

MsiInterface::~MsiInterface() {
    if (!library) return;
    const auto uninitialize =
        Find<decltype(&MsiUninitialize)>("MsiUninitialize", L"Failed to find MsiUninitialize method");
    if (uninitialize != nullptr) uninitialize();
}

template <class Function>
Function MsiInterface::Find(const char* name, const wchar_t* failure) const {
    const auto function = FindExport<Function>(library.get(), name);
    if (function == nullptr) LogAdvanced(failure);
    return function;
}

void MsiInterface::EnableInstallLog() const {
    const auto enable = Find<decltype(&MsiEnableInstallLog)>("MsiEnableInstallLog",
                                                             L"Failed to find MsiEnableInstallLog method");
    if (enable == nullptr) return;
    std::wstring name = settings.GetString(Tag::OEM);
    if (name.empty()) name = unnamedVendor;
    enable(name.c_str(), name.size());
}

std::uint32_t MsiInterface::InstallApp(std::wstring packagePath, InstallProgressCallback callback,
                                       std::wstring commandDocument) {
    if (!library) return MsiCode::Success;
    EnableInstallLog();
    const auto install =
        Find<decltype(&MsiInstallApp)>("MsiInstallApp", L"Failed to find MsiInstallApp method");
    if (install == nullptr) return MsiCode::Success;
    return install(packagePath.c_str(), Length(packagePath), callback, commandDocument.c_str(),
                   Length(commandDocument));
}

std::uint32_t MsiInterface::UninstallApp(std::wstring packagePath, InstallProgressCallback callback) {
    if (!library) return MsiCode::Success;
    EnableInstallLog();
    const auto uninstall =
        Find<decltype(&MsiUninstallApp)>("MsiUninstallApp", L"Failed to find MsiUninstallApp method");
    if (uninstall == nullptr) return MsiCode::Success;
    return uninstall(packagePath.c_str(), Length(packagePath), callback);
}

void MsiInterface::Cancel() {
    if (!library) return;
    EnableInstallLog();
    const auto cancel = Find<decltype(&MsiCancel)>("MsiCancel", L"Failed to find MsiCancel method");
    if (cancel != nullptr) cancel();
}

std::uint32_t MsiInterface::FetchDocument(const std::wstring& packagePath, const std::wstring& language,
                                          std::wstring& document) {
    if (!library) return MsiCode::Success;
    EnableInstallLog();
    // By design: the text names another export than the one that is missing.
    const auto getProperties =
        Find<decltype(&MsiGetProperties)>("MsiGetProperties", L"Failed to find MsiGetPropertyValue method");
    if (getProperties == nullptr) return MsiCode::Success;

    std::wstring buffer(firstCapacity, L'\0');
    std::uint32_t needed = 0;
    const auto ask = [&] {
        return getProperties(packagePath.c_str(), language.c_str(), buffer.data(), Length(buffer), &needed);
    };
    std::uint32_t code = ask();
    if (code == MsiCode::BufferTooSmall && needed > largestDocument) {
        LogBasic(L"Brevanto.dll asks for a document of " + std::to_wstring(needed) + L" characters for " +
                     packagePath,
                 LogLevel::Error);
        needed = 0;
    } else if (code == MsiCode::BufferTooSmall) {
        buffer.assign(static_cast<std::size_t>(needed) + 1, L'\0');
        code = ask();
    }
    // A length beyond the buffer is not taken at its word.
    document.assign(buffer.data(), std::min(static_cast<std::size_t>(needed), buffer.size()));
    propertyCache.emplace(packagePath, document);
    return code;
}

std::uint32_t MsiInterface::GetPropertyValue(std::wstring packagePath, std::wstring property,
                                             std::wstring language, std::wstring& value) {
    std::uint32_t code = MsiCode::Success;
    std::wstring fetched;
    const auto cached = propertyCache.find(packagePath);
    if (cached == propertyCache.end()) code = FetchDocument(packagePath, language, fetched);
    const std::wstring& document = cached == propertyCache.end() ? fetched : cached->second;
    if (TagDocument::FindValue(document, property, value)) return code;
    LogAdvanced(L"Failed to find the property");
    return MsiCode::PropertyNotFound;
}

bool MsiInterface::IsAppInstalled(std::wstring packagePath, bool& upToDate, bool& upgradable,
                                  bool& minorUpgrade) {
    if (!library) return false;
    const std::wstring language = localizer.GetString(TextKey::LANGUAGE_ID);
    EnableInstallLog();
    const auto isInstalled = Find<decltype(&MsiIsAppInstalledByLang)>(
        "MsiIsAppInstalledByLang", L"Failed to find MsiIsAppInstalled method");
    if (isInstalled == nullptr) return false;
    std::uint8_t upToDateByte = upToDate ? 1 : 0;
    std::uint8_t upgradableByte = upgradable ? 1 : 0;
    std::uint8_t minorUpgradeByte = minorUpgrade ? 1 : 0;
    const bool installed = isInstalled(packagePath.c_str(), Length(packagePath), &upToDateByte,
                                       &upgradableByte, &minorUpgradeByte, language.c_str()) != 0;
    upToDate = upToDateByte != 0;
    upgradable = upgradableByte != 0;
    minorUpgrade = minorUpgradeByte != 0;
    return installed;
}
