// The operations of InstallSettings that read the package's two settings files.

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/TextFile.h"
#include "settings/InstallSettings.h"
#include "settings/SettingsMerge.h"
#include "settings/StartMarker.h"
#include "settings/TagNames.h"

int InstallSettings::ReadFromFile(const std::wstring& path, std::wstring& text) {
    // Each piece is decoded by itself, so a character that a piece's end splits is lost; a line is not meant
    // to be that long.
    const int error = ReadTextPieces(path, [&](std::string_view piece) { text += Utf8ToWide(piece); });
    if (error != 0) {
        LogAdvanced(L"InstallSettings::ReadFromFile(), Loading InstallSettings file failed! " + path,
                    LogLevel::Error);
    }
    return error;
}

int InstallSettings::LoadDefaults() {
    std::wstring text;
    const int error = ReadFromFile(GetExeDirectory() + L"\\..\\defaultInstallSettings.xml", text);
    if (error != 0) return error;
    {
        const std::lock_guard guard(lock);
        document += text;
    }
    ApplyVendor();
    return 0;
}

int InstallSettings::MergeFile(const std::wstring& path) {
    std::wstring incoming;
    const int error = ReadFromFile(path, incoming);
    if (error != 0) return error;
    {
        const std::lock_guard guard(lock);
        MergeDocument(document, mergedRecord, incoming);
    }
    ApplyVendor();
    return 0;
}

void InstallSettings::ApplyVendor() {
    const std::wstring vendor = GetString(Tag::OEM);
    if (vendor.empty()) {
        SetString(Tag::OEM, L"Printer");
        Logger::GetInstance().SetVendor(L"Printer");
        LogBasic(
            L"Default Settings file does not have Vendor name. Bad configuration found. Ensure UTF-8 file "
            L"format "
            L"is used.",
            LogLevel::Error);
    } else {
        Logger::GetInstance().SetVendor(vendor);
    }
    LogBasic(L"Default Configuration File Values");
    std::wstring values;
    {
        const std::lock_guard guard(lock);
        values = HoldsStartMarker(document) ? StripStartMarker(document) : document;
    }
    LogBasic(values);
}
