#include "tools/PackageCheck/MsiContents.h"

#include "CommonLib/TextUtilities.h"

namespace packagecheck {

namespace {

// Of a short and a long name, divided by "|", the long one.
std::wstring LongName(const std::wstring& name) {
    const std::size_t bar = name.find(L'|');
    return bar == std::wstring::npos ? name : name.substr(bar + 1);
}

// The folders of the Directory table with their whole paths.
class Directories {
public:
    explicit Directories(MsiDatabase& database) {
        for (auto& row : database.Rows("Directory", {"Directory", "Directory_Parent", "DefaultDir"})) {
            // A target and a source are divided by ":".
            const std::wstring name = LongName(row[2].substr(0, row[2].find(L':')));
            rows.emplace(row[0], Entry{.parent = row[1], .name = name == L"." ? L"" : name});
        }
    }

    const std::wstring& PathOf(const std::wstring& id) {
        static const std::wstring root;
        const auto found = rows.find(id);
        // A folder that is its own parent, over whatever way, has no path.
        if (found == rows.end() || found->second.isBusy) return root;
        Entry& entry = found->second;
        if (entry.isKnown) return entry.path;
        entry.isBusy = true;
        ++depth;
        entry.path = IsRoot(id, entry) || depth > deepest ? root : Join(PathOf(entry.parent), entry.name);
        --depth;
        entry.isBusy = false;
        entry.isKnown = true;
        return entry.path;
    }

    template <class Action>
    void ForEachId(const Action& action) const {
        for (const auto& [id, entry] : rows) action(id);
    }

private:
    struct Entry {
        std::wstring parent;
        std::wstring name;
        std::wstring path;
        bool isKnown = false;
        bool isBusy = false;
    };

    // Windows makes no folders that are nested deeper.
    static constexpr int deepest = 1'000;

    static bool IsRoot(const std::wstring& id, const Entry& entry) {
        return entry.parent.empty() || entry.parent == id;
    }

    static std::wstring Join(const std::wstring& folder, const std::wstring& name) {
        if (folder.empty() || name.empty()) return folder + name;
        return folder + L'\\' + name;
    }

    std::unordered_map<std::wstring, Entry> rows;
    int depth = 0;
};

// Adds the names that stand in brackets.
void AddNamesIn(std::wstring_view text, std::set<std::wstring>& names) {
    for (std::size_t open = text.find(L'['); open != std::wstring_view::npos;
         open = text.find(L'[', open + 1)) {
        const std::size_t end = text.find_first_of(L"[]", open + 1);
        if (end == std::wstring_view::npos) return;
        if (text[end] == L']') names.emplace(text.substr(open + 1, end - open - 1));
    }
}

void ReadFiles(MsiDatabase& database, Directories& directories, MsiContents& contents) {
    std::unordered_map<std::wstring, std::wstring> folders;
    for (auto& row : database.Rows("Component", {"Component", "Directory_"})) folders.emplace(row[0], row[1]);
    for (auto& row : database.Rows("File", {"Component_", "FileName"})) {
        contents.files.push_back({.folder = directories.PathOf(folders[row[0]]), .name = LongName(row[1])});
    }
}

void ReadUsedProperties(MsiDatabase& database, const Directories& directories, MsiContents& contents) {
    for (const auto& row : database.Rows("Registry", {"Value"})) AddNamesIn(row[0], contents.usedProperties);
    for (const auto& row : database.Rows("CustomAction", {"Target"}))
        AddNamesIn(row[0], contents.usedProperties);
    directories.ForEachId([&](const std::wstring& id) { contents.usedProperties.insert(id); });
}

}  // namespace

std::string SelectStatement(const std::string& table, const std::vector<std::string>& columns) {
    std::string names;
    for (const std::string& column : columns) names += (names.empty() ? "`" : ",`") + column + "`";
    return "SELECT " + names + " FROM `" + table + "`";
}

const std::wstring& MsiContents::PropertyOf(std::wstring_view name) const {
    static const std::wstring nothing;
    const auto found = properties.find(std::wstring(name));
    return found == properties.end() ? nothing : found->second;
}

MsiContents ReadContents(MsiDatabase& database) {
    MsiContents contents{.summary = database.Summary()};
    for (auto& row : database.Rows("Property", {"Property", "Value"})) contents.properties[row[0]] = row[1];
    for (auto& row : database.Rows("Upgrade", {"UpgradeCode", "Attributes", "ActionProperty"})) {
        contents.upgrades.push_back(
            {.upgradeCode = row[0], .attributes = LeadingInteger(row[1]), .actionProperty = row[2]});
    }
    for (auto& row : database.Rows("AdminExecuteSequence", {"Action"})) contents.adminActions.insert(row[0]);
    Directories directories(database);
    ReadFiles(database, directories, contents);
    ReadUsedProperties(database, directories, contents);
    return contents;
}

}  // namespace packagecheck
