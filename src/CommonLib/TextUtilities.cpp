#include "CommonLib/TextUtilities.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

bool IsSign(wchar_t character) {
    return character == L'+' || character == L'-';
}

wchar_t ToLower(wchar_t character) {
    const bool isCapital = character >= L'A' && character <= L'Z';
    return isCapital ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

std::wstring_view WithoutLeadingSpace(std::wstring_view text) {
    const std::size_t start = text.find_first_not_of(L" \t\n\v\f\r");
    return text.substr(std::min(start, text.size()));
}

// Reads a number's characters from the front of a text, as narrow ones.
class NumberReader {
public:
    explicit NumberReader(std::wstring_view numberText) : text(WithoutLeadingSpace(numberText)) {}

    // Returns the number in the form that strtod takes, without what follows it.
    std::string Read() {
        if (IsSign(Next())) Take();
        std::size_t digits = TakeDigits();
        if (Next() == L'.') {
            Take();
            digits += TakeDigits();
        }
        if (digits == 0) return {};
        if (ExponentFollows()) {
            Take();
            if (IsSign(Next())) Take();
            TakeDigits();
        }
        return number;
    }

private:
    wchar_t Next(std::size_t ahead = 0) const { return ahead < text.size() ? text[ahead] : L'\0'; }

    void Take() {
        number += static_cast<char>(text.front());
        text.remove_prefix(1);
    }

    std::size_t TakeDigits() {
        const std::size_t before = number.size();
        while (IsDigit(Next())) Take();
        return number.size() - before;
    }

    bool ExponentFollows() const { return ToLower(Next()) == L'e' && IsDigit(Next(IsSign(Next(1)) ? 2 : 1)); }

    std::wstring_view text;
    std::string number;
};

}  // namespace

std::wstring ToDecimalString(std::uint32_t number) {
    return std::to_wstring(number);
}

std::vector<std::wstring> SplitClosed(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> pieces;
    for (auto end = text.find(separator); end != std::wstring_view::npos; end = text.find(separator)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return pieces;
}

bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right) {
    return std::ranges::equal(left, right, [](wchar_t a, wchar_t b) { return ToLower(a) == ToLower(b); });
}

std::int32_t LeadingInteger(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    text = WithoutLeadingSpace(text);
    const bool negative = !text.empty() && text.front() == L'-';
    if (!text.empty() && IsSign(text.front())) text.remove_prefix(1);
    std::int64_t number = 0;
    for (std::size_t i = 0; i < text.size() && IsDigit(text[i]); ++i) {
        number = number * 10 + (negative ? L'0' - text[i] : text[i] - L'0');
        number = std::clamp<std::int64_t>(number, Limits::min(), Limits::max());
    }
    return static_cast<std::int32_t>(number);
}

double LeadingNumber(std::wstring_view text) {
    const std::string number = NumberReader(text).Read();
    return number.empty() ? 0 : std::strtod(number.c_str(), nullptr);
}

std::wstring_view FileNameOf(std::wstring_view path) {
    return path.substr(path.rfind(L'\\') + 1);
}
