#include <string>

#include "tools/PackageCheck/Manifests.h"

#include <nlohmann/json.hpp>

namespace packagecheck {

namespace {

using OrderedJson = nlohmann::ordered_json;

OrderedJson ReturnCodes() {
    return {{{"returnCode", 0}, {"type", "success"}},       {{"returnCode", 1707}, {"type", "success"}},
            {{"returnCode", 3010}, {"type", "softReboot"}}, {{"returnCode", 1641}, {"type", "hardReboot"}},
            {{"returnCode", 1618}, {"type", "retry"}},      {{"returnCode", 1602}, {"type", "retry"}}};
}

OrderedJson DetectionRules(const ManifestData& data) {
    OrderedJson rules = OrderedJson::array();
    for (const ManifestProduct& product : data.products) {
        OrderedJson rule = {{"@odata.type", "#microsoft.graph.win32LobAppProductCodeDetection"},
                            {"productCode", product.productCode},
                            {"productVersionOperator", "notConfigured"}};
        if (!product.version.empty()) {
            rule["productVersionOperator"] = "greaterThanOrEqual";
            rule["productVersion"] = product.version;
        }
        rules.push_back(rule);
    }
    return rules;
}

}  // namespace

Manifest IntuneManifest(const ManifestData& data) {
    const std::string& description = data.locales.front().description;
    OrderedJson app = {
        {"@odata.type", "#microsoft.graph.win32LobApp"},
        {"displayName", data.name},
        {"displayVersion", data.version},
        {"description", description.empty() ? data.name : description},
        {"publisher", data.vendor},
        {"setupFilePath", "Setup\\x64\\Rollout.exe"},
        {"installCommandLine",
         "Setup\\x64\\Rollout.exe --timeout 3000 --report \"%ProgramData%\\PrinterRollout.json\""},
        {"uninstallCommandLine", "Setup\\x64\\Rollout.exe --uninstall"},
        {"applicableArchitectures", "x64"},
        {"installExperience", {{"runAsAccount", "system"}, {"deviceRestartBehavior", "basedOnReturnCode"}}},
        {"returnCodes", ReturnCodes()},
        {"detectionRules", DetectionRules(data)}};
    if (!data.link.empty()) app["informationUrl"] = data.link;
    return {.files = {{.path = data.identifier + ".intune.json", .bytes = app.dump(2) + "\n"}},
            .placeholders = {}};
}

}  // namespace packagecheck
