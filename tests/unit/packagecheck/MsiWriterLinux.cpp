#include <gtest/gtest.h>
#include <libmsi.h>

#include "tests/unit/packagecheck/MsiWriter.h"

// libmsi keeps a few texts of a database that is closed. What it does with objects of ours is still watched,
// since these are allocated by another library.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libmsi.so";
}

void WriteMsi(const std::filesystem::path& path, const std::vector<std::string>& statements) {
    LibmsiDatabase* database = libmsi_database_new(path.c_str(), LIBMSI_DB_FLAGS_CREATE, nullptr, nullptr);
    ASSERT_NE(database, nullptr);
    for (const std::string& statement : statements) {
        LibmsiQuery* query = libmsi_query_new(database, statement.c_str(), nullptr);
        ASSERT_NE(query, nullptr) << statement;
        EXPECT_TRUE(libmsi_query_execute(query, nullptr, nullptr)) << statement;
        g_object_unref(query);
    }
    EXPECT_TRUE(libmsi_database_commit(database, nullptr));
    g_object_unref(database);
}
