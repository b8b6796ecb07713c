#include "standins/PrinterQueue/RegistryLedger.h"

#include <algorithm>

#include "CommonLib/Exception.h"
#include "CommonLib/TextUtilities.h"
#include "framework/Handles.h"

namespace printerqueue {
namespace {

constexpr wchar_t packagesKey[] = L"Software\\PrinterQueue";
constexpr wchar_t ledgerValue[] = L"Ledger";
constexpr DWORD longestKeyName = 255;

std::wstring KeyOf(const std::wstring& code) {
    return std::wstring(packagesKey) + L"\\" + code;
}

Ledger ReadLedgerAt(HKEY root, const std::wstring& code) {
    DWORD size = 0;
    const std::wstring key = KeyOf(code);
    if (RegGetValueW(root, key.c_str(), ledgerValue, RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
        ERROR_SUCCESS) {
        return {};
    }
    std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
    if (RegGetValueW(root, key.c_str(), ledgerValue, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS) {
        return {};
    }
    return ReadLedger(text.data());
}

std::vector<std::wstring> PackageCodes(HKEY root) {
    RegistryKey packages;
    if (RegOpenKeyExW(root, packagesKey, 0, KEY_READ, packages.put()) != ERROR_SUCCESS) return {};
    std::vector<std::wstring> codes;
    wchar_t name[longestKeyName + 1] = {};
    for (DWORD index = 0;; ++index) {
        DWORD length = longestKeyName + 1;
        if (RegEnumKeyExW(packages.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return codes;
        }
        codes.emplace_back(name, length);
    }
}

}  // namespace

RegistryLedger::RegistryLedger(HKEY rootKey, const std::wstring& packageCode)
    : root(rootKey), code(packageCode) {
    // A code is part of a key's name.
    std::ranges::replace(code, L'\\', L'_');
}

Ledger RegistryLedger::Read() {
    return ReadLedgerAt(root, code);
}

void RegistryLedger::Write(const Ledger& ledger) {
    if (ledger == Ledger{}) {
        RegDeleteKeyW(root, KeyOf(code).c_str());
        // Stays while it holds the key of another package.
        RegDeleteKeyW(root, packagesKey);
        return;
    }
    const std::wstring text = WriteLedger(ledger);
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS result =
        RegSetKeyValueW(root, KeyOf(code).c_str(), ledgerValue, REG_SZ, text.c_str(), size);
    if (result == ERROR_SUCCESS) return;
    throw Exception(L"What the package does cannot be recorded in the registry (error " +
                    ToDecimalString(static_cast<std::uint32_t>(result)) + L")");
}

std::vector<Deed> RegistryLedger::DeedsOfOthers() {
    std::vector<Deed> deeds;
    for (const std::wstring& other : PackageCodes(root)) {
        if (EqualsIgnoringCase(other, code)) continue;
        const std::vector<Deed> lasting = ReadLedgerAt(root, other).lasting;
        deeds.insert(deeds.end(), lasting.begin(), lasting.end());
    }
    return deeds;
}

}  // namespace printerqueue
