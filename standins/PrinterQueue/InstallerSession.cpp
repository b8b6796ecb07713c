#include "standins/PrinterQueue/InstallerSession.h"

#include <msiquery.h>

#include "standins/Brevanto/MsiHandle.h"

namespace printerqueue {
namespace {

// Calls read(buffer, &length) for a text of any length; returns the empty text if that fails.
template <class Read>
std::wstring ReadText(const Read& read) {
    wchar_t none[] = L"";
    DWORD length = 0;
    if (read(none, &length) != ERROR_MORE_DATA) return {};
    std::wstring text(length, L'\0');
    ++length;
    if (read(text.data(), &length) != ERROR_SUCCESS) return {};
    text.resize(length);
    return text;
}

}  // namespace

std::wstring InstallerSession::Property(const wchar_t* name) const {
    return ReadText(
        [&](wchar_t* buffer, DWORD* length) { return MsiGetPropertyW(install, name, buffer, length); });
}

void InstallerSession::SetProperty(const wchar_t* name, const std::wstring& value) const {
    MsiSetPropertyW(install, name, value.c_str());
}

std::wstring InstallerSession::Formatted(const std::wstring& text) const {
    // Of a record without a text the installer lists the fields.
    if (text.empty()) return {};
    const brevanto::MsiHandle record(MsiCreateRecord(1));
    MsiRecordSetStringW(record.get(), 0, text.c_str());
    return ReadText([&](wchar_t* buffer, DWORD* length) {
        return MsiFormatRecordW(install, record.get(), buffer, length);
    });
}

void InstallerSession::Say(const std::wstring& text) {
    lastText = text;
    Send(INSTALLMESSAGE_INFO, L"PrinterQueue: " + text);
}

bool InstallerSession::IsCancelled() {
    return Send(INSTALLMESSAGE_ACTIONDATA, lastText) == IDCANCEL;
}

void InstallerSession::ShowError(const std::wstring& text) const {
    Send(INSTALLMESSAGE_ERROR, text);
}

// The text is a field of its own, so that brackets in it stand for themselves.
int InstallerSession::Send(INSTALLMESSAGE kind, const std::wstring& text) const {
    const brevanto::MsiHandle record(MsiCreateRecord(1));
    MsiRecordSetStringW(record.get(), 0, L"[1]");
    MsiRecordSetStringW(record.get(), 1, text.c_str());
    return MsiProcessMessage(install, kind, record.get());
}

}  // namespace printerqueue
