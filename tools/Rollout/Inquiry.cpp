#include "tools/Rollout/Inquiry.h"

#include "CommonLib/Utf8.h"

#include <nlohmann/json.hpp>

namespace rollout {
namespace {

using Json = nlohmann::json;

// Tells an answer from whatever else a library may print.
constexpr const char* markName = "kestruneRollout";
constexpr int markValue = 1;

Json Answer(const char* kind) {
    return {{markName, markValue}, {"kind", kind}};
}

std::string Line(const Json& document) {
    return document.dump(-1, ' ', true, Json::error_handler_t::replace);
}

// Throws where the line is no document, or no object.
std::optional<Json> ReadAnswer(std::string_view line, const char* kind) {
    Json document = Json::parse(line);
    if (document.value(markName, 0) != markValue || document.value("kind", "") != kind) return std::nullopt;
    return document;
}

std::wstring Text(const Json& document, const char* name) {
    return FromUtf8(document.at(name).get<std::string>());
}

Json StateDocument(const PackageState& state) {
    return {{"installed", state.installed},
            {"upToDate", state.upToDate},
            {"upgradable", state.upgradable},
            {"minorUpgrade", state.minorUpgrade}};
}

PackageState StateOf(const Json& document) {
    return {.installed = document.at("installed"),
            .upToDate = document.at("upToDate"),
            .upgradable = document.at("upgradable"),
            .minorUpgrade = document.at("minorUpgrade")};
}

Json EntryDocument(const PackageEntry& entry) {
    return {{"path", ToUtf8(entry.path)},       {"product", ToUtf8(entry.product)},
            {"version", ToUtf8(entry.version)}, {"intention", static_cast<int>(entry.intention)},
            {"parent", ToUtf8(entry.parent)},   {"before", StateDocument(entry.before)}};
}

PackageEntry EntryOf(const Json& document) {
    return {.path = Text(document, "path"),
            .product = Text(document, "product"),
            .version = Text(document, "version"),
            .intention = static_cast<Intention>(document.at("intention").get<int>()),
            .parent = Text(document, "parent"),
            .before = StateOf(document.at("before"))};
}

Json BoxDocument(const BoxTexts& texts) {
    return {{"failure", ToUtf8(texts.failure)},
            {"installerBusy", ToUtf8(texts.installerBusy)},
            {"noPermission", ToUtf8(texts.noPermission)},
            {"diskFull", ToUtf8(texts.diskFull)},
            {"otherCopy", ToUtf8(texts.otherCopy)}};
}

BoxTexts BoxTextsOf(const Json& document) {
    return {.failure = Text(document, "failure"),
            .installerBusy = Text(document, "installerBusy"),
            .noPermission = Text(document, "noPermission"),
            .diskFull = Text(document, "diskFull"),
            .otherCopy = Text(document, "otherCopy")};
}

PackageDescription DescriptionOf(const Json& document) {
    PackageDescription description{.failure = Text(document, "failure"),
                                   .vendor = Text(document, "vendor"),
                                   .logFolder = Text(document, "logFolder"),
                                   .canRunSilently = document.at("canRunSilently"),
                                   .boxTexts = BoxTextsOf(document.at("boxTexts"))};
    for (const Json& entry : document.at("packages")) description.packages.push_back(EntryOf(entry));
    for (const Json& line : document.at("plan"))
        description.plan.push_back(FromUtf8(line.get<std::string>()));
    return description;
}

// Reads an answer of that kind. Elements of other types than they should have make it none.
template <class Read>
auto ReadAs(std::string_view line, const char* kind, Read read)
    -> std::optional<decltype(read(std::declval<const Json&>()))> {
    try {
        const std::optional<Json> document = ReadAnswer(line, kind);
        if (document) return read(*document);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

std::string WriteDescription(const PackageDescription& description) {
    Json document = Answer("description");
    document["failure"] = ToUtf8(description.failure);
    document["vendor"] = ToUtf8(description.vendor);
    document["logFolder"] = ToUtf8(description.logFolder);
    document["canRunSilently"] = description.canRunSilently;
    document["boxTexts"] = BoxDocument(description.boxTexts);
    document["packages"] = Json::array();
    for (const PackageEntry& entry : description.packages)
        document["packages"].push_back(EntryDocument(entry));
    document["plan"] = Json::array();
    for (const std::wstring& line : description.plan) document["plan"].push_back(ToUtf8(line));
    return Line(document);
}

std::optional<PackageDescription> ReadDescription(std::string_view line) {
    return ReadAs(line, "description", &DescriptionOf);
}

std::string WriteStates(const std::vector<PackageState>& states) {
    Json document = Answer("states");
    document["states"] = Json::array();
    for (const PackageState& state : states) document["states"].push_back(StateDocument(state));
    return Line(document);
}

std::optional<std::vector<PackageState>> ReadStates(std::string_view line) {
    return ReadAs(line, "states", [](const Json& document) {
        std::vector<PackageState> states;
        for (const Json& state : document.at("states")) states.push_back(StateOf(state));
        return states;
    });
}

std::string WriteRemoval(std::uint32_t code) {
    Json document = Answer("removal");
    document["code"] = code;
    return Line(document);
}

std::optional<std::uint32_t> ReadRemoval(std::string_view line) {
    return ReadAs(line, "removal",
                  [](const Json& document) { return document.at("code").get<std::uint32_t>(); });
}

}  // namespace rollout
