#include "standins/Brevanto/CommandLine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace brevanto {
namespace {

struct Element {
    std::wstring_view name;
    std::wstring_view value;
};

// Texts that a user types end up in command documents; these would let one decide what is installed, or from
// where.
constexpr std::array<std::wstring_view, 13> steeringNames = {
    L"ACTION",        L"ADDDEFAULT",     L"ADDLOCAL",  L"ADDSOURCE", L"ADVERTISE",
    L"EXECUTEACTION", L"MSINEWINSTANCE", L"PATCH",     L"REBOOT",    L"REINSTALL",
    L"REINSTALLMODE", L"REMOVE",         L"TRANSFORMS"};

bool IsPropertyName(std::wstring_view name) {
    const auto isPart = [](wchar_t unit) {
        return (unit >= L'A' && unit <= L'Z') || (unit >= L'0' && unit <= L'9') || unit == L'_';
    };
    return !name.empty() && !(name[0] >= L'0' && name[0] <= L'9') && std::ranges::all_of(name, isPart);
}

bool IsSteering(std::wstring_view name) {
    return std::ranges::find(steeringNames, name) != steeringNames.end();
}

// Takes the next outer element off the document; nothing when none is left.
std::optional<Element> TakeElement(std::wstring_view& document) {
    while (true) {
        const std::size_t open = document.find(L'<');
        if (open == std::wstring_view::npos) return std::nullopt;
        document.remove_prefix(open + 1);
        const std::size_t end = document.find_first_of(L"<>");
        if (end == std::wstring_view::npos) return std::nullopt;
        const std::wstring_view name = document.substr(0, end);
        document.remove_prefix(end);
        if (document[0] != L'>' || !IsPropertyName(name)) continue;

        const std::wstring closeTag = L"</" + std::wstring(name) + L">";
        const std::size_t close = document.find(closeTag);
        if (close == std::wstring_view::npos) return std::nullopt;
        const std::wstring_view value = document.substr(1, close - 1);
        document.remove_prefix(close + closeTag.size());
        return Element{.name = name, .value = value};
    }
}

// A null character would end the command line inside the quotes, so it is left out.
std::wstring Quoted(std::wstring_view value) {
    std::wstring quoted = L"\"";
    for (const wchar_t unit : value) {
        if (unit == L'"') quoted += L'"';
        if (unit != L'\0') quoted += unit;
    }
    return quoted + L"\"";
}

}  // namespace

std::wstring BuildCommandLine(std::wstring_view commandDocument) {
    std::wstring line = L"REBOOT=ReallySuppress";
    std::set<std::wstring_view> seen;
    while (const std::optional<Element> element = TakeElement(commandDocument)) {
        if (IsSteering(element->name) || !seen.insert(element->name).second) continue;
        if (element->name != L"TAG_REINSTALL") {
            line += L" " + std::wstring(element->name) + L"=" + Quoted(element->value);
        } else if (element->value == L"true") {
            line += L" REINSTALL=ALL REINSTALLMODE=vomus";
        }
    }
    return line;
}

}  // namespace brevanto
