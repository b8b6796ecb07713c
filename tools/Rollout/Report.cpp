#include "tools/Rollout/Report.h"

#include <optional>

#include "CommonLib/TextUtilities.h"
#include "CommonLib/Utf8.h"

#include <nlohmann/json.hpp>

namespace rollout {
namespace {

using OrderedJson = nlohmann::ordered_json;

constexpr int indentation = 2;
// In characters; what is longer is a settings document, which the log holds whole.
constexpr std::size_t longestMessage = 1000;

OrderedJson State(const PackageState& state) {
    return {{"installed", state.installed},
            {"upToDate", state.upToDate},
            {"upgradable", state.upgradable},
            {"minorUpgrade", state.minorUpgrade}};
}

OrderedJson Package(const PackageEntry& entry, const PackageResult& result) {
    OrderedJson document{{"product", ToUtf8(entry.product)},
                         {"version", ToUtf8(entry.version)},
                         {"file", ToUtf8(FileNameOf(entry.path))},
                         {"plan", ToUtf8(WordsFor(entry.intention))},
                         {"before", State(entry.before)},
                         {"after", nullptr},
                         {"outcome", NameOf(result.outcome)},
                         {"code", result.code},
                         {"seconds", nullptr}};
    if (!entry.parent.empty()) document["parent"] = ToUtf8(FileNameOf(entry.parent));
    if (result.after) document["after"] = State(*result.after);
    if (result.seconds) document["seconds"] = *result.seconds;
    return document;
}

OrderedJson Packages(const Report& report) {
    OrderedJson list = OrderedJson::array();
    for (std::size_t index = 0; index < report.packages.size(); ++index) {
        const PackageResult none{.outcome = PackageOutcome::Unknown, .code = report.verdict.code};
        list.push_back(
            Package(report.packages[index], index < report.results.size() ? report.results[index] : none));
    }
    return list;
}

OrderedJson QuestionsOf(const Report& report) {
    OrderedJson list = OrderedJson::array();
    for (const AskedQuestion& question : report.questions) {
        list.push_back({{"kind", NameOf(question.kind)},
                        {"title", ToUtf8(question.title)},
                        {"text", ToUtf8(question.text)},
                        {"answer", NameOfAnswer(question.answer)}});
    }
    return list;
}

OrderedJson Log(const Report& report) {
    OrderedJson list = OrderedJson::array();
    for (const RunRecord& record : report.log) {
        list.push_back({{"level", ToUtf8(record.level)},
                        {"time", ToUtf8(record.time)},
                        {"message", ToUtf8(std::wstring_view(record.message).substr(0, longestMessage))}});
    }
    return list;
}

}  // namespace

std::string WriteReport(const Report& report) {
    const OrderedJson document{{"form", 1},
                               {"action", report.action},
                               {"computer", ToUtf8(report.computer)},
                               {"folder", ToUtf8(report.folder)},
                               {"vendor", ToUtf8(report.vendor)},
                               {"started", report.started},
                               {"seconds", report.seconds},
                               {"code", report.verdict.code},
                               {"reason", ToUtf8(report.verdict.reason)},
                               {"packages", Packages(report)},
                               {"questions", QuestionsOf(report)},
                               {"log", Log(report)}};
    return document.dump(indentation, ' ', false, OrderedJson::error_handler_t::replace) + "\n";
}

}  // namespace rollout
