#include "tools/PackageCheck/JsonOutput.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "tools/PackageCheck/JsonText.h"

namespace packagecheck {

namespace {

using Json = nlohmann::ordered_json;

std::size_t CountOf(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<std::size_t>(std::ranges::count_if(
        findings, [&](const Finding& finding) { return finding.rule->severity == severity; }));
}

Json JsonOf(const Finding& finding) {
    Json json = {{"rule", finding.rule->id}, {"severity", NameOf(finding.rule->severity)}};
    if (!finding.place.file.empty()) json["file"] = finding.place.file;
    if (finding.place.position.line > 0) {
        json["line"] = finding.place.position.line;
        json["column"] = finding.place.position.column;
    }
    json["message"] = finding.message;
    json["effect"] = finding.rule->effect;
    json["cure"] = finding.rule->cure;
    return json;
}

// A path as the part of a web address.
std::string UriOf(const std::string& path) {
    constexpr std::string_view plain = "-._~/";
    std::string uri;
    for (const char letter : path) {
        const bool isLetter = (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
        const bool isPlain =
            isLetter || (letter >= '0' && letter <= '9') || plain.find(letter) != std::string_view::npos;
        std::array<char, 4> code{};
        if (!isPlain) std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned char>(letter));
        uri += isPlain ? std::string(1, letter) : std::string(code.data());
    }
    return uri;
}

Json SarifRules() {
    Json rules = Json::array();
    for (const Rule* rule : AllRules()) {
        rules.push_back({{"id", rule->id},
                         {"shortDescription", {{"text", rule->effect}}},
                         {"fullDescription", {{"text", rule->explanation}}},
                         {"help", {{"text", rule->cure}}},
                         {"defaultConfiguration", {{"level", NameOf(rule->severity)}}}});
    }
    return rules;
}

Json SarifResult(const Finding& finding) {
    const auto rules = AllRules();
    const auto index = std::distance(rules.begin(), std::ranges::find(rules, finding.rule));
    Json result = {{"ruleId", finding.rule->id},
                   {"ruleIndex", index},
                   {"level", NameOf(finding.rule->severity)},
                   {"message", {{"text", finding.message}}}};
    if (finding.place.file.empty()) return result;
    Json location = {{"artifactLocation", {{"uri", UriOf(finding.place.file)}}}};
    if (finding.place.position.line > 0) {
        location["region"] = {{"startLine", finding.place.position.line},
                              {"startColumn", finding.place.position.column}};
    }
    result["locations"] = Json::array({{{"physicalLocation", location}}});
    return result;
}

}  // namespace

void WriteJson(std::ostream& out, const std::vector<Finding>& findings, const std::string& folder) {
    Json list = Json::array();
    for (const Finding& finding : findings) list.push_back(JsonOf(finding));
    WriteDocument(out, {{"version", 1},
                        {"package", folder},
                        {"errors", CountOf(findings, Severity::Error)},
                        {"warnings", CountOf(findings, Severity::Warning)},
                        {"findings", list}});
}

void WriteSarif(std::ostream& out, const std::vector<Finding>& findings) {
    Json results = Json::array();
    for (const Finding& finding : findings) results.push_back(SarifResult(finding));
    const Json run = {{"tool", {{"driver", {{"name", "PackageCheck"}, {"rules", SarifRules()}}}}},
                      {"columnKind", "unicodeCodePoints"},
                      {"results", results}};
    WriteDocument(out, {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                        {"version", "2.1.0"},
                        {"runs", Json::array({run})}});
}

}  // namespace packagecheck
