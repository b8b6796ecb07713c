#include <libmsi.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "CommonLib/Utf8.h"
#include "tools/PackageCheck/MsiFile.h"

namespace packagecheck {

namespace {

struct ObjectRelease {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Type>
using Owned = std::unique_ptr<Type, ObjectRelease>;

struct TextRelease {
    void operator()(gchar* text) const { g_free(text); }
};

// An error that a call may leave.
class Failure {
public:
    Failure() = default;
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
    ~Failure() { g_clear_error(&error); }

    GError** Put() {
        g_clear_error(&error);
        return &error;
    }
    std::string Text() const { return error == nullptr ? "unknown error" : error->message; }

private:
    GError* error = nullptr;
};

class LibmsiTables : public MsiDatabase {
public:
    explicit LibmsiTables(Owned<LibmsiDatabase> opened) : database(std::move(opened)) {}

    std::vector<Row> Rows(const std::string& table, const std::vector<std::string>& columns) override {
        const std::string question = SelectStatement(table, columns);
        std::vector<Row> rows;
        Failure failure;
        const Owned<LibmsiQuery> query(libmsi_query_new(database.get(), question.c_str(), failure.Put()));
        if (!query || libmsi_query_execute(query.get(), nullptr, failure.Put()) == 0) return rows;
        while (rows.size() < mostRows) {
            const Owned<LibmsiRecord> record(libmsi_query_fetch(query.get(), failure.Put()));
            if (!record) break;
            rows.push_back(Texts(record.get(), columns.size()));
        }
        return rows;
    }

    MsiSummary Summary() override {
        Failure failure;
        const Owned<LibmsiSummaryInfo> summary(libmsi_summary_info_new(database.get(), 0, failure.Put()));
        if (!summary) return {};
        const auto text = [&](LibmsiProperty property) {
            const gchar* const value = libmsi_summary_info_get_string(summary.get(), property, failure.Put());
            return value == nullptr ? std::wstring() : FromUtf8(value);
        };
        return {.platform = text(LIBMSI_PROPERTY_TEMPLATE),
                .installerVersion =
                    libmsi_summary_info_get_int(summary.get(), LIBMSI_PROPERTY_VERSION, failure.Put()),
                .packageCode = text(LIBMSI_PROPERTY_UUID)};
    }

private:
    static Row Texts(LibmsiRecord* record, std::size_t count) {
        Row row;
        for (guint field = 1; field <= count; ++field) {
            const std::unique_ptr<gchar, TextRelease> text(libmsi_record_get_string(record, field));
            row.push_back(text ? FromUtf8(text.get()) : std::wstring());
        }
        return row;
    }

    Owned<LibmsiDatabase> database;
};

}  // namespace

std::unique_ptr<MsiDatabase> OpenMsi(const std::filesystem::path& path, std::string& error) {
    Failure failure;
    Owned<LibmsiDatabase> database(
        libmsi_database_new(path.c_str(), LIBMSI_DB_FLAGS_READONLY, nullptr, failure.Put()));
    if (!database) {
        error = failure.Text();
        return nullptr;
    }
    return std::make_unique<LibmsiTables>(std::move(database));
}

}  // namespace packagecheck
