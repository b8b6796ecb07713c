#include <gtest/gtest.h>
#include <libmsi.h>

#include <climits>

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
    LibmsiSummaryInfo* summary = libmsi_summary_info_new(nullptr, INT_MAX, nullptr);
    libmsi_summary_info_set_string(summary, LIBMSI_PROPERTY_TEMPLATE, "x64;1033", nullptr);
    libmsi_summary_info_set_int(summary, LIBMSI_PROPERTY_VERSION, 200, nullptr);
    libmsi_summary_info_set_string(summary, LIBMSI_PROPERTY_UUID, "{00000000-0000-0000-0000-000000000001}",
                                   nullptr);
    EXPECT_TRUE(libmsi_summary_info_save(summary, database, nullptr));
    g_object_unref(summary);
    EXPECT_TRUE(libmsi_database_commit(database, nullptr));
    g_object_unref(database);
}
