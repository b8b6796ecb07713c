#include "standins/Brevanto/Package.h"

#include <msiquery.h>

#include "standins/Brevanto/MsiHandle.h"

namespace brevanto {
namespace {

UINT OpenPropertyTable(const std::wstring& packagePath, MsiHandle& database, MsiHandle& view) {
    UINT code = MsiOpenDatabaseW(packagePath.c_str(), MSIDBOPEN_READONLY, database.put());
    if (code != ERROR_SUCCESS) return code;
    code = MsiDatabaseOpenViewW(database.get(), L"SELECT `Property`, `Value` FROM `Property`", view.put());
    if (code != ERROR_SUCCESS) return code;
    return MsiViewExecute(view.get(), 0);
}

}  // namespace

std::wstring RecordText(MSIHANDLE record, UINT field) {
    DWORD length = 0;
    wchar_t none[] = L"";
    if (MsiRecordGetStringW(record, field, none, &length) != ERROR_MORE_DATA) return {};
    std::wstring text(length, L'\0');
    ++length;
    if (MsiRecordGetStringW(record, field, text.data(), &length) != ERROR_SUCCESS) return {};
    text.resize(length);
    return text;
}

UINT ReadPackage(const std::wstring& packagePath, std::vector<Property>& properties) {
    properties.clear();
    MsiHandle database;
    MsiHandle view;
    UINT code = OpenPropertyTable(packagePath, database, view);
    MsiHandle record;
    while (code == ERROR_SUCCESS && (code = MsiViewFetch(view.get(), record.put())) == ERROR_SUCCESS) {
        properties.push_back({.name = RecordText(record.get(), 1), .value = RecordText(record.get(), 2)});
    }
    if (code == ERROR_NO_MORE_ITEMS) return ERROR_SUCCESS;
    properties.clear();
    return code;
}

}  // namespace brevanto
