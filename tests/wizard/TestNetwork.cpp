#include "tests/wizard/TestNetwork.h"

#include <string_view>

#include "tests/wizard/PackageTree.h"

namespace {

constexpr wchar_t sharesKey[] = L"SOFTWARE\\KestruneTestShares";
constexpr wchar_t orderKey[] = L"SYSTEM\\CurrentControlSet\\Control\\NetworkProvider\\Order";
constexpr wchar_t providerKey[] = L"SYSTEM\\CurrentControlSet\\Services\\KestruneTestShares";
constexpr wchar_t providerName[] = L"KestruneTestShares";

void SetText(const std::wstring& key, const wchar_t* name, std::wstring_view text) {
    const std::wstring value(text);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

TestNetwork::TestNetwork() {
    const std::wstring library = (BuildFolder() / L"tests" / L"fakes" / L"SharedPrinters.dll").wstring();
    SetText(orderKey, L"ProviderOrder", providerName);
    SetText(std::wstring(providerKey) + L"\\NetworkProvider", L"ProviderPath", library);
    SetText(std::wstring(providerKey) + L"\\NetworkProvider", L"Name", providerName);
}

TestNetwork::~TestNetwork() {
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, orderKey, L"ProviderOrder");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, providerKey);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, sharesKey);
}

void TestNetwork::Add(const std::wstring& path, DWORD type) const {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, sharesKey, path.c_str(), REG_DWORD, &type, sizeof(type));
}
