#include "tests/wizard/endurance/LogJudge.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::wstring_view lineEnd = L"\r\n";
constexpr std::wstring_view timeForm = L"0000/00/00-00:00:00";
constexpr std::size_t timePlace = 9;

std::wstring Decode(std::string_view bytes) {
    std::wstring text;
    for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
        text += static_cast<wchar_t>(static_cast<std::uint8_t>(bytes[place]) |
                                     static_cast<std::uint8_t>(bytes[place + 1]) << 8);
    }
    return text;
}

bool FitsTime(std::wstring_view text) {
    return text.size() == timeForm.size() &&
           std::ranges::equal(text, timeForm, [](wchar_t sign, wchar_t form) {
               return form == L'0' ? sign >= L'0' && sign <= L'9' : sign == form;
           });
}

// Where times stand in the line.
std::vector<std::size_t> TimesIn(std::wstring_view line) {
    std::vector<std::size_t> places;
    for (std::size_t slash = line.find(L'/'); slash != std::wstring_view::npos;
         slash = line.find(L'/', slash + 1)) {
        if (slash >= 4 && FitsTime(line.substr(slash - 4, timeForm.size()))) places.push_back(slash - 4);
    }
    return places;
}

// What the packages of an endurance run bring along is written in these.
bool IsForeign(wchar_t sign) {
    return sign >= 0x7F || (sign < L' ' && sign != L'\r' && sign != L'\n' && sign != L'\t');
}

bool IsRecord(std::wstring_view line, LogForm form) {
    if (line.size() < timePlace || !FitsTime(line.substr(timePlace, timeForm.size()))) return false;
    return form == LogForm::Basic || (line.find(L"  pid=") == timePlace + timeForm.size() &&
                                      line.find(L"  tid=") != std::wstring_view::npos);
}

class LogJudge {
public:
    LogJudge(std::wstring_view logText, LogForm logForm, const std::vector<std::size_t>& cutPlaces)
        : text(logText), form(logForm), cuts(cutPlaces) {}

    std::vector<std::string> Damage() {
        if (std::ranges::any_of(text, IsForeign)) Find("holds signs that nobody wrote");
        std::size_t start = 0;
        for (std::size_t end = text.find(lineEnd); end != std::wstring_view::npos;
             end = text.find(lineEnd, start)) {
            JudgeLine(start, end);
            start = end + lineEnd.size();
        }
        if (start != text.size() && !IsCut(start, text.size())) Find("ends within a record");
        return damage;
    }

private:
    void Find(const std::string& what) {
        if (std::ranges::find(damage, what) == damage.end()) damage.push_back(what);
    }

    bool IsCut(std::size_t start, std::size_t end) const {
        return std::ranges::any_of(
            cuts, [&](std::size_t cut) { return cut / 2 >= start && (cut + 1) / 2 <= end + lineEnd.size(); });
    }

    void JudgeLine(std::size_t start, std::size_t end) {
        const std::wstring_view line = text.substr(start, end - start);
        const std::vector<std::size_t> times = TimesIn(line);
        if (times.size() > 1 || (times.size() == 1 && times.front() != timePlace)) {
            Find("has two records in one line");
        } else if (!IsRecord(line, form) && !line.empty() && !line.starts_with(L"<") && !IsCut(start, end)) {
            Find("has a line that is no record");
        }
    }

    std::wstring_view text;
    LogForm form;
    const std::vector<std::size_t>& cuts;
    std::vector<std::string> damage;
};

}  // namespace

std::vector<std::string> DamageIn(std::string_view bytes, LogForm form,
                                  const std::vector<std::size_t>& cuts) {
    const std::wstring text = Decode(bytes);
    std::vector<std::string> damage = LogJudge(text, form, cuts).Damage();
    const bool endsInCut = std::ranges::find(cuts, bytes.size()) != cuts.end();
    if (bytes.size() % 2 != 0 && !endsInCut) damage.emplace_back("ends within a sign");
    return damage;
}

std::size_t CountIn(std::string_view bytes, std::wstring_view text) {
    const std::wstring log = Decode(bytes);
    std::size_t count = 0;
    for (std::size_t place = log.find(text); place != std::wstring::npos; place = log.find(text, place + 1))
        ++count;
    return count;
}
