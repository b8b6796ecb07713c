#include <windows.h>

#include <msi.h>
#include <msiquery.h>
#include <wtypes.h>

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

// The properties of the summary, by their numbers in the stream.
constexpr UINT templateOfSummary = 7;
constexpr UINT revisionOfSummary = 9;
constexpr UINT pagesOfSummary = 14;

std::wstring SummaryText(MSIHANDLE summary, UINT property) {
    UINT type = 0;
    INT number = 0;
    FILETIME time{};
    std::wstring text(256, L'\0');
    auto length = static_cast<DWORD>(text.size());
    UINT code = MsiSummaryInfoGetPropertyW(summary, property, &type, &number, &time, text.data(), &length);
    if (code == ERROR_MORE_DATA) {
        text.resize(++length);
        code = MsiSummaryInfoGetPropertyW(summary, property, &type, &number, &time, text.data(), &length);
    }
    text.resize(code == ERROR_SUCCESS && type == VT_LPSTR ? length : 0);
    return text;
}

int SummaryNumber(MSIHANDLE summary, UINT property) {
    UINT type = 0;
    INT number = 0;
    FILETIME time{};
    DWORD length = 0;
    const UINT code = MsiSummaryInfoGetPropertyW(summary, property, &type, &number, &time, nullptr, &length);
    return code == ERROR_SUCCESS && type == VT_I4 ? number : 0;
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

    MsiSummary Summary() override {
        MsiHandle summary;
        if (MsiGetSummaryInformationW(database.get(), nullptr, 0, summary.put()) != ERROR_SUCCESS) return {};
        return {.platform = SummaryText(summary.get(), templateOfSummary),
                .installerVersion = SummaryNumber(summary.get(), pagesOfSummary),
                .packageCode = SummaryText(summary.get(), revisionOfSummary)};
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
