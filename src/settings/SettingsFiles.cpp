#include "settings/SettingsFiles.h"

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextFile.h"
#include "settings/TagNames.h"
#include "settings/VendorName.h"

namespace {

// Longer paths are refused by a system that was not told to take them.
constexpr std::size_t longestPath = 259;

// Says why the program ends where nothing else would.
void LogTooLongPath() {
    const std::wstring path = GetSetupDirectory() + L"\\defaultInstallSettings.xml";
    if (path.size() > longestPath) {
        LogBasic(L"The path of the package is too long: " + path, LogLevel::Error);
    }
}

// Puts the maker's name where the logger finds it, and the values as the file gave them into the log.
void ApplyVendor(InstallSettings& settings) {
    const bool isNamed = SettleVendor(settings);
    Logger::GetInstance().SetVendor(settings.GetString(Tag::OEM));
    if (!isNamed) {
        LogBasic(
            L"Default Settings file does not have Vendor name. Bad configuration found. Ensure UTF-8 file "
            L"format "
            L"is used.",
            LogLevel::Error);
    }
    LogBasic(L"Default Configuration File Values");
    LogBasic(settings.FileValues());
}

}  // namespace

int ReadFromFile(const std::wstring& path, std::wstring& text) {
    // Each piece is decoded by itself, so a character that a piece's end splits is lost; a line is not meant
    // to be that long.
    const int error = ReadTextPieces(path, [&](std::string_view piece) { text += Utf8ToWide(piece); });
    if (error != 0) {
        LogAdvanced(L"InstallSettings::ReadFromFile(), Loading InstallSettings file failed! " + path,
                    LogLevel::Error);
    }
    return error;
}

int LoadDefaults(InstallSettings& settings) {
    std::wstring text;
    const int error = ReadFromFile(GetExeDirectory() + L"\\..\\defaultInstallSettings.xml", text);
    if (error != 0) {
        LogTooLongPath();
        return error;
    }
    settings.Append(text);
    ApplyVendor(settings);
    return 0;
}

int MergeFile(InstallSettings& settings, const std::wstring& path) {
    std::wstring incoming;
    const int error = ReadFromFile(path, incoming);
    if (error != 0) return error;
    settings.Merge(incoming);
    ApplyVendor(settings);
    return 0;
}
