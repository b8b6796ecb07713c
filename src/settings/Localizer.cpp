#include "settings/Localizer.h"

#include "CommonLib/Log.h"
#include "CommonLib/TextUtilities.h"
#include "settings/LanguageTable.h"
#include "settings/TagDocument.h"
#include "settings/TextExpansion.h"

namespace {

constexpr std::uint32_t primaryLanguageBits = 0x3FF;

}  // namespace

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
    std::call_once(loaded, [this] { text = source.readFile(GetXmlFileName(source.languageId)); });
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

std::wstring Localizer::GetSystemLanguageCode() const {
    return MapLanguage(source.languageId & primaryLanguageBits, source.languageId);
}

bool IsRightToLeft(const Localizer& localizer) {
    return localizer.GetString(TextKey::READING_ORDER) == L"RTL";
}
