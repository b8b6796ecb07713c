#include <windows.h>

#include <gtest/gtest.h>
#include <msi.h>
#include <msiquery.h>

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
    EXPECT_EQ(MsiDatabaseCommit(database.get()), ERROR_SUCCESS);
}
