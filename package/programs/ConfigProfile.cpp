#include "package/programs/ConfigProfile.h"

#include <algorithm>
#include <array>

namespace {

struct Entity {
    wchar_t character;
    const wchar_t* text;
};

constexpr auto entities = std::to_array<Entity>({{L'&', L"&amp;"}, {L'<', L"&lt;"}, {L'"', L"&quot;"}});

std::wstring Escaped(std::wstring_view text) {
    std::wstring escaped;
    for (const wchar_t character : text) {
        const auto* const entity = std::ranges::find(entities, character, &Entity::character);
        if (entity == entities.end()) {
            escaped += character;
        } else {
            escaped += entity->text;
        }
    }
    return escaped;
}

std::wstring Setting(const std::wstring& name, bool value) {
    return L"      <" + name + L">" + (value ? L"true" : L"false") + L"</" + name + L">\r\n";
}

}  // namespace

std::wstring TargetFile(std::wstring_view commandLine) {
    constexpr std::wstring_view newer = L" save /xdc ";
    constexpr std::wstring_view older = L" /f \"";
    if (const std::size_t place = commandLine.find(newer); place != std::wstring_view::npos) {
        return std::wstring(commandLine.substr(place + newer.size()));
    }
    const std::size_t place = commandLine.rfind(older);
    if (place == std::wstring_view::npos) return {};
    const std::wstring_view value = commandLine.substr(place + older.size());
    return std::wstring(value.substr(0, value.find(L'"')));
}

std::wstring ProfileDocument(const ConfigProfile& profile) {
    return L"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
           L"<ConfigurationProfiles>\r\n"
           L"  <PrinterProfiles>\r\n"
           L"    <PrinterProfile name=\"" +
           Escaped(profile.name) + L"\">\r\n" + Setting(L"TwoSided", profile.twoSided) +
           Setting(L"SaveToner", profile.saveToner) + Setting(L"ShadesOfGrey", profile.shadesOfGrey) +
           L"    </PrinterProfile>\r\n"
           L"  </PrinterProfiles>\r\n"
           L"</ConfigurationProfiles>\r\n";
}
