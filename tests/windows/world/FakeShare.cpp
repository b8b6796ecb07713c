#include "tests/windows/world/FakeShare.h"

#include <cstring>
#include <cwchar>
#include <optional>
#include <string_view>
#include <utility>

namespace {

struct Asked {
    NETRESOURCEW question;
    std::wstring name;
    DWORD room;
};

FakeShare::Answer scripted;
std::optional<Asked> asked;
FARPROC(WINAPI* findExport)(HMODULE, LPCSTR) = nullptr;

// As the function is documented: the texts lie after the record, and a buffer that does not hold both is
// left alone.
DWORD WINAPI Answer(LPNETRESOURCEW question, LPVOID buffer, LPDWORD size, LPWSTR* rest) {
    asked = Asked{.question = *question, .name = question->lpRemoteName, .room = *size};
    if (scripted.before) scripted.before();
    if (scripted.code != NO_ERROR) return scripted.code;
    const std::size_t textSize = (scripted.remoteName.size() + 1) * sizeof(wchar_t);
    const auto needed = static_cast<DWORD>(sizeof(NETRESOURCEW) + textSize);
    const DWORD room = std::exchange(*size, needed);
    if (room < needed) return ERROR_MORE_DATA;
    auto& record = *static_cast<NETRESOURCEW*>(buffer);
    record = {.dwScope = RESOURCE_GLOBALNET, .dwType = scripted.type};
    record.lpRemoteName = reinterpret_cast<LPWSTR>(&record + 1);
    std::memcpy(record.lpRemoteName, scripted.remoteName.c_str(), textSize);
    *rest = nullptr;
    return NO_ERROR;
}

FARPROC WINAPI FindExportOrAnswer(HMODULE library, LPCSTR name) {
    if (std::string_view("WNetGetResourceInformationW") != name) return findExport(library, name);
    return scripted.isMissing ? nullptr : reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Answer));
}

auto* Prepare(FakeShare::Answer answer) {
    scripted = std::move(answer);
    asked.reset();
    findExport = &GetProcAddress;
    return &FindExportOrAnswer;
}

}  // namespace

FakeShare::FakeShare(Answer answer) : patch("GetProcAddress", Prepare(std::move(answer))) {}

bool FakeShare::WasAsked() const {
    return asked.has_value();
}

NETRESOURCEW FakeShare::Question() const {
    return asked.value().question;
}

std::wstring FakeShare::AskedName() const {
    return asked.value().name;
}

DWORD FakeShare::Room() const {
    return asked.value().room;
}
