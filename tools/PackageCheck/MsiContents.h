// What the checks know of an .msi file.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace packagecheck {

// A row of the Upgrade table.
struct UpgradeRow {
    std::wstring upgradeCode;
    int attributes = 0;
    std::wstring actionProperty;

    // Whether products that it finds are removed.
    bool Removes() const {
        constexpr int onlyDetect = 2;
        return (attributes & onlyDetect) == 0;
    }
};

// A file that the package installs. The folders are the long names of the Directory table from below the root
// on, joined by backslashes.
struct InstalledFile {
    std::wstring folder;
    std::wstring name;
};

// What Windows Installer asks of a file before it looks at its tables.
struct MsiSummary {
    std::wstring platform;     // the template: platform, ";" and languages
    int installerVersion = 0;  // the page count: the version that is needed, 200 for 2.0
    std::wstring packageCode;  // the revision number
};

struct MsiContents {
    MsiSummary summary;
    std::unordered_map<std::wstring, std::wstring> properties;
    std::vector<UpgradeRow> upgrades;
    std::set<std::wstring> adminActions;  // of the AdminExecuteSequence table
    std::vector<InstalledFile> files;
    std::set<std::wstring>
        usedProperties;  // named in brackets by registry values and custom actions, or as a folder

    // The value of a property, or the empty text.
    const std::wstring& PropertyOf(std::wstring_view name) const;
};

// The tables of an .msi file. An object belongs to one thread.
class MsiDatabase {
public:
    using Row = std::vector<std::wstring>;

    MsiDatabase() = default;
    MsiDatabase(const MsiDatabase&) = delete;
    MsiDatabase& operator=(const MsiDatabase&) = delete;
    virtual ~MsiDatabase() = default;

    // Returns the columns of each row of a table, numbers as decimal text. No rows where there is no such
    // table, and no more than a real package has.
    virtual std::vector<Row> Rows(const std::string& table, const std::vector<std::string>& columns) = 0;

    // What is missing stays empty.
    virtual MsiSummary Summary() = 0;
};

// Returns the query for the columns of all rows of a table.
std::string SelectStatement(const std::string& table, const std::vector<std::string>& columns);

// Takes time in proportion to the rows.
MsiContents ReadContents(MsiDatabase& database);

}  // namespace packagecheck
