#include <windows.h>

#include <array>
#include <cwchar>

#include "CommonLib/Files.h"
#include "CommonLib/Log.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/SystemVersion.h"
#include "CommonLib/TextFile.h"
#include "framework/Handles.h"
#include "framework/SystemLibrary.h"
#include "settings/LanguageTable.h"
#include "settings/Localizer.h"

namespace {

Singleton<Localizer> sharedLocalizer;

// The whole file as text, without a byte order mark. False if it cannot be opened.
bool ReadLanguageFile(const std::wstring& path, std::wstring& text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string bytes;
    if (ReadTextPieces(path, [&](std::string_view piece) { bytes += piece; }) != 0) return false;
    const std::string_view content = bytes;
    text = Utf8ToWide(content.substr(content.starts_with(byteOrderMark) ? byteOrderMark.size() : 0));
    return true;
}

// The user's language identifier as the system's newer locale functions know it, 0 without them.
unsigned long NewerUserLanguage() {
    using GetLocaleInfoExFunction = int(WINAPI*)(const wchar_t*, LCTYPE, wchar_t*, int);
    const Library library = LoadSystemLibrary(L"Kernel32.dll");
    const auto ask =
        library ? FindExport<GetLocaleInfoExFunction>(library.get(), "GetLocaleInfoEx") : nullptr;
    std::array<wchar_t, 85> answer{};
    if (ask == nullptr || ask(nullptr, LOCALE_ILANGUAGE, answer.data(), answer.size()) == 0) return 0;
    return std::wcstoul(answer.data(), nullptr, 16);
}

std::wstring ReadFileOfPackage(const std::wstring& fileName) {
    const std::wstring folder = GetExeDirectory() + L"\\..\\res\\";
    std::wstring path = folder + fileName;
    if (!CanBeReadAlone(path)) path = folder + L"en_strings.xml";
    std::wstring text;
    if (!ReadLanguageFile(path, text)) {
        LogAdvanced(L"Localizer(), Loading Resource file failed! " + folder, LogLevel::Error);
    }
    return text;
}

}  // namespace

Localizer& Localizer::GetInstance() {
    return sharedLocalizer.Get();
}

void Localizer::DestroyInstance() {
    sharedLocalizer.Destroy();
}

LanguageSource SystemLanguageSource() {
    return {.languageId = GetUserDefaultUILanguage(), .readFile = &ReadFileOfPackage};
}

Localizer::Localizer() : Localizer(InstallSettings::GetInstance(), SystemLanguageSource()) {}

std::wstring GetLanguageCode() {
    const std::uint16_t languageId = GetUserDefaultUILanguage();
    return MapLanguage(PRIMARYLANGID(languageId), languageId);
}

bool IsRightToLeftLocale() {
    const unsigned long language =
        IsWindowsVersionOrGreater(WindowsVersion::Vista) ? NewerUserLanguage() : GetUserDefaultLCID();
    const unsigned long primaryId = PRIMARYLANGID(language);
    return primaryId == LANG_ARABIC || primaryId == LANG_HEBREW;
}
