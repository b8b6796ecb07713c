#include "ports/PortText.h"

#include "CommonLib/AddressText.h"
#include "CommonLib/TextUtilities.h"
#include "settings/TextExpansion.h"

std::wstring ShownPortName(std::wstring name, bool rightToLeftTexts, bool rightToLeftLocale) {
    for (const wchar_t bracket : {L')', L'}', L']'}) {
        const std::size_t place = rightToLeftTexts ? name.find(bracket) : std::wstring::npos;
        if (place != std::wstring::npos) name.insert(place + 1, 1, leftToRightMark);
    }
    return rightToLeftLocale && IsValidIpV4Text(name) ? OverrideLeftToRight(name) : name;
}
