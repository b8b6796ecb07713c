// A network for the tests: it knows the shares that stand as values below a key of the registry, each with
// its resource type as a number; a number from 1000 on is the error of a share that cannot be reached. It is
// asked by the system, as every network provider is.
#include <windows.h>

extern "C" {
#include <npapi.h>
}

#include <optional>
#include <string>

namespace {

constexpr wchar_t sharesKey[] = L"SOFTWARE\\KestruneTestShares";
constexpr DWORD firstError = 1000;

struct Share {
    std::wstring name;
    DWORD type = 0;
};

// The registry finds a name in any case and gives it as it was written, which is what networks do.
std::optional<Share> FindShare(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, sharesKey, 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
    std::optional<Share> found;
    wchar_t name[400]{};
    DWORD length = 400;
    DWORD type = 0;
    DWORD size = sizeof(type);
    for (DWORD index = 0; !found && RegEnumValueW(key, index, name, &length, nullptr, nullptr,
                                                  reinterpret_cast<BYTE*>(&type), &size) == ERROR_SUCCESS;
         ++index) {
        if (_wcsicmp(name, path.c_str()) == 0) found = Share{.name = name, .type = type};
        length = 400;
        size = sizeof(type);
    }
    RegCloseKey(key);
    return found;
}

}  // namespace

extern "C" {

__declspec(dllexport) DWORD APIENTRY NPGetCaps(DWORD index) {
    switch (index) {
        case WNNC_SPEC_VERSION:
            return WNNC_SPEC_VERSION51;
        case WNNC_NET_TYPE:
            return WNNC_NET_LANMAN;
        case WNNC_ENUMERATION:
            return WNNC_ENUM_GLOBAL;
        case WNNC_DIALOG:
            return WNNC_DLG_GETRESOURCEINFORMATION;
        default:
            return 0;
    }
}

__declspec(dllexport) DWORD APIENTRY NPOpenEnum(DWORD, DWORD, DWORD, LPNETRESOURCEW, LPHANDLE) {
    return WN_NOT_SUPPORTED;
}

__declspec(dllexport) DWORD APIENTRY NPEnumResource(HANDLE, LPDWORD, LPVOID, LPDWORD) {
    return WN_NO_MORE_ENTRIES;
}

__declspec(dllexport) DWORD APIENTRY NPCloseEnum(HANDLE) {
    return WN_SUCCESS;
}

__declspec(dllexport) DWORD APIENTRY
    NPGetResourceInformation(LPNETRESOURCEW question, LPVOID buffer, LPDWORD size, LPWSTR* rest) {
    const std::optional<Share> share = FindShare(question->lpRemoteName);
    if (!share) return WN_BAD_NETNAME;
    if (share->type >= firstError) return share->type;
    const std::size_t textSize = (share->name.size() + 1) * sizeof(wchar_t);
    const auto needed = static_cast<DWORD>(sizeof(NETRESOURCEW) + textSize);
    if (*size < needed) {
        *size = needed;
        return WN_MORE_DATA;
    }
    auto& answer = *static_cast<NETRESOURCEW*>(buffer);
    answer = {.dwScope = RESOURCE_GLOBALNET,
              .dwType = share->type,
              .dwDisplayType = RESOURCEDISPLAYTYPE_SHARE,
              .dwUsage = RESOURCEUSAGE_CONNECTABLE};
    answer.lpRemoteName = reinterpret_cast<LPWSTR>(&answer + 1);
    share->name.copy(answer.lpRemoteName, share->name.size());
    answer.lpRemoteName[share->name.size()] = L'\0';
    if (rest != nullptr) *rest = nullptr;
    return WN_SUCCESS;
}
}
