#include "tests/windows/world/ArabicUser.h"

#include <string_view>

namespace {

decltype(&GetProcAddress) realGetProcAddress = nullptr;

int WINAPI AnswerForArabic(const wchar_t*, LCTYPE, wchar_t* answer, int) {
    constexpr std::wstring_view language = L"0401";
    language.copy(answer, language.size());
    answer[language.size()] = L'\0';
    return static_cast<int>(language.size()) + 1;
}

FARPROC WINAPI FindOwnLocale(HMODULE library, const char* name) {
    if (std::string_view(name) != "GetLocaleInfoEx") return realGetProcAddress(library, name);
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&AnswerForArabic));
}

// The program must find the function itself before the stand-in takes its place.
decltype(&FindOwnLocale) TakeOver() {
    realGetProcAddress = reinterpret_cast<decltype(realGetProcAddress)>(
        reinterpret_cast<void*>(::GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetProcAddress")));
    return &FindOwnLocale;
}

}  // namespace

ArabicUser::ArabicUser() : exports("GetProcAddress", TakeOver()) {}
