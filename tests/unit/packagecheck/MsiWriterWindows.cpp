#include <windows.h>

#include <gtest/gtest.h>
#include <msi.h>
#include <msiquery.h>
#include <wtypes.h>

#include "standins/Brevanto/MsiHandle.h"
#include "tests/unit/packagecheck/MsiWriter.h"

void WriteMsi(const std::filesystem::path& path, const std::vector<std::string>& statements) {
    brevanto::MsiHandle database;
    ASSERT_EQ(MsiOpenDatabaseW(path.c_str(), MSIDBOPEN_CREATE, database.put()), ERROR_SUCCESS);
    for (const std::string& statement : statements) {
        brevanto::MsiHandle view;
        ASSERT_EQ(MsiDatabaseOpenViewA(database.get(), statement.c_str(), view.put()), ERROR_SUCCESS)
            << statement;
        EXPECT_EQ(MsiViewExecute(view.get(), 0), ERROR_SUCCESS) << statement;
    }
    brevanto::MsiHandle summary;
    ASSERT_EQ(MsiGetSummaryInformationW(database.get(), nullptr, 3, summary.put()), ERROR_SUCCESS);
    const auto set = [&](UINT property, UINT type, INT number, const wchar_t* text) {
        EXPECT_EQ(MsiSummaryInfoSetPropertyW(summary.get(), property, type, number, nullptr, text),
                  ERROR_SUCCESS);
    };
    set(7, VT_LPSTR, 0, L"x64;1033");
    set(9, VT_LPSTR, 0, L"{00000000-0000-0000-0000-000000000001}");
    set(14, VT_I4, 200, nullptr);
    EXPECT_EQ(MsiSummaryInfoPersist(summary.get()), ERROR_SUCCESS);
    EXPECT_EQ(MsiDatabaseCommit(database.get()), ERROR_SUCCESS);
}
