#include <windows.h>

#include <msi.h>
#include <msiquery.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "CommonLib/Utf8.h"
#include "standins/Brevanto/MsiHandle.h"
#include "tools/PackageCheck/MsiFile.h"

namespace packagecheck {

namespace {

using brevanto::MsiHandle;

std::wstring TextOf(MSIHANDLE record, UINT field) {
    std::wstring text(256, L'\0');
    auto length = static_cast<DWORD>(text.size());
    UINT code = MsiRecordGetStringW(record, field, text.data(), &length);
    if (code == ERROR_MORE_DATA) {
        text.resize(++length);
        code = MsiRecordGetStringW(record, field, text.data(), &length);
    }
    text.resize(code == ERROR_SUCCESS ? length : 0);
    return text;
}

class InstallerTables : public MsiDatabase {
public:
    explicit InstallerTables(MsiHandle opened) : database(std::move(opened)) {}

    std::vector<Row> Rows(const std::string& table, const std::vector<std::string>& columns) override {
        const std::wstring question = FromUtf8(SelectStatement(table, columns));
        std::vector<Row> rows;
        MsiHandle view;
        if (MsiDatabaseOpenViewW(database.get(), question.c_str(), view.put()) != ERROR_SUCCESS ||
            MsiViewExecute(view.get(), 0) != ERROR_SUCCESS) {
            return rows;
        }
        MsiHandle record;
        while (rows.size() < mostRows && MsiViewFetch(view.get(), record.put()) == ERROR_SUCCESS) {
            Row row;
            for (UINT field = 1; field <= columns.size(); ++field) row.push_back(TextOf(record.get(), field));
            rows.push_back(std::move(row));
        }
        return rows;
    }

private:
    MsiHandle database;
};

}  // namespace

std::unique_ptr<MsiDatabase> OpenMsi(const std::filesystem::path& path, std::string& error) {
    MsiHandle database;
    const UINT code = MsiOpenDatabaseW(path.c_str(), MSIDBOPEN_READONLY, database.put());
    if (code == ERROR_SUCCESS) return std::make_unique<InstallerTables>(std::move(database));
    error = "error " + std::to_string(code) + " of Windows Installer";
    return nullptr;
}

}  // namespace packagecheck
