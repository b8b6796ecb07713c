#include "package/programs/ConfigProfile.h"

namespace {

std::wstring Escaped(std::wstring_view text) {
    std::wstring escaped;
    for (const wchar_t character : text) {
        switch (character) {
            case L'&':
                escaped += L"&amp;";
                break;
            case L'<':
                escaped += L"&lt;";
                break;
            case L'"':
                escaped += L"&quot;";
                break;
            default:
                escaped += character;
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
