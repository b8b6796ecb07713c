#include "settings/Localizer.h"

#include <windows.h>

#include <array>
#include <cwchar>

#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/SystemText.h"
#include "CommonLib/SystemVersion.h"
#include "CommonLib/TextFile.h"
#include "CommonLib/TextUtilities.h"
#include "framework/Handles.h"
#include "framework/SystemLibrary.h"
#include "settings/LanguageTable.h"
#include "settings/TagDocument.h"
#include "settings/TextExpansion.h"
#include "settings/TextKeys.h"

namespace {

constexpr std::uint32_t primaryLanguageBits = 0x3FF;

Singleton<Localizer> singleton;

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

}  // namespace

Localizer& Localizer::GetInstance() {
    return singleton.Get();
}

void Localizer::DestroyInstance() {
    singleton.Destroy();
}

Localizer::Localizer() : Localizer(InstallSettings::GetInstance()) {}

void Localizer::Load() const {
    const std::wstring folder = GetExeDirectory() + L"\\..\\res\\";
    std::wstring path = folder + GetXmlFileName(GetUserDefaultUILanguage());
    if (!CanBeReadAlone(path)) path = folder + L"en_strings.xml";
    if (!ReadLanguageFile(path, text)) {
        LogAdvanced(L"Localizer(), Loading Resource file failed! " + folder, LogLevel::Error);
    }
}

std::wstring Localizer::GetXmlFileName(std::uint16_t languageId) const {
    const std::uint32_t primaryId = languageId & primaryLanguageBits;
    std::wstring code = languageOption;
    if (code.empty()) code = MapLanguage(primaryId, languageId);
    std::wstring name = LanguageFileName(code);
    LogAdvanced(L"Localizer::GetXmlFileName(), currentLangId = " + ToDecimalString(languageId) +
                L" primaryLangId = " + ToDecimalString(primaryId));
    LogAdvanced(L"Language resource file being used: " + name);
    return name;
}

std::wstring Localizer::GetString(TextId key) const {
    std::call_once(loaded, [this] { Load(); });
    int surplus = 0;
    std::wstring value = ReduceAccessKeys(TagDocument::ValueOf(text, key.Name()), surplus);
    for (; surplus > 0; --surplus) {
        LogAdvanced(std::wstring(L"Localizer::GetString, multiple access keys found: ").append(key.Name()),
                    LogLevel::Error);
    }
    TagExpansion expansion = ExpandTags(
        std::move(value), [this](std::wstring_view tag) { return settings.GetString(TextTag(tag)); });
    if (expansion.endless) {
        LogAdvanced(std::wstring(L"Localizer::GetString, the settings values in a text never end: ")
                        .append(key.Name()),
                    LogLevel::Error);
    }
    return expansion.text;
}

std::wstring GetLanguageCode() {
    const std::uint32_t languageId = GetUserDefaultUILanguage();
    return MapLanguage(languageId & primaryLanguageBits, languageId);
}

bool IsRightToLeft(const Localizer& localizer) {
    return localizer.GetString(TextKey::READING_ORDER) == L"RTL";
}

bool IsRightToLeftLocale() {
    const unsigned long language =
        IsWindowsVersionOrGreater(WindowsVersion::Vista) ? NewerUserLanguage() : GetUserDefaultLCID();
    const unsigned long primaryId = language & primaryLanguageBits;
    return primaryId == LANG_ARABIC || primaryId == LANG_HEBREW;
}
