#include "tools/Rollout/Answerer.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CommonLib/Logger.h"
#include "CommonLib/Utf8.h"
#include "app/Collaborators.h"
#include "catalogue/MsiInterface.h"
#include "settings/TagDocument.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "tools/Rollout/Inquiry.h"
#include "tools/Rollout/OfferedPackages.h"
#include "tools/Rollout/Questions.h"
#include "tools/Rollout/RunPlan.h"

namespace rollout {
namespace {

constexpr DWORD pauseForFilesInUseInMilliseconds = 2000;

// Answers the library while it removes a package, as the boxes of a run are answered: nobody's program is
// closed.
std::int32_t AnswerToRemoval(const wchar_t* message) {
    static int asked = 0;
    if (TagDocument::ValueOf(message, Tag::RM_FILE_IN_USE) == L"true") return IDCANCEL;
    if (TagDocument::ValueOf(message, Tag::FILE_IN_USE) != L"true") return IDOK;
    if (++asked > triesForFilesInUse) return IDCANCEL;
    Sleep(pauseForFilesInUseInMilliseconds);
    return IDRETRY;
}

void AppendEntries(const std::vector<MSI_APP>& records, const std::wstring& parent,
                   std::vector<PackageEntry>& entries) {
    for (const MSI_APP& record : records) {
        // Two packages may take the same one along.
        if (std::ranges::find(entries, record.msiPath, &PackageEntry::path) != entries.end()) continue;
        entries.push_back({.path = record.msiPath,
                           .product = record.productName,
                           .version = record.productVersion,
                           .intention = IntentionFor(record),
                           .parent = parent,
                           .before = {.installed = record.installed,
                                      .upToDate = record.upToDate,
                                      .upgradable = record.upgradable,
                                      .minorUpgrade = record.minorUpgrade}});
        if (record.hasDependents) AppendEntries(record.dependents, record.msiPath, entries);
    }
}

BoxTexts TextsOfBoxes(const Localizer& localizer) {
    return {.failure = localizer.GetString(TextKey::ERROR_TEXT),
            .installerBusy = localizer.GetString(TextKey::INSTALL_ALREADY_RUNNING_TEXT),
            .noPermission = localizer.GetString(TextKey::PERMISSION_ERROR_TEXT),
            .diskFull = localizer.GetString(TextKey::DISK_FULL_ERROR_TEXT),
            .otherCopy = localizer.GetString(TextKey::MULTIINSTANCE_ERROR_TEXT)};
}

// Answers for one package, which is read at the first question.
class Answerer {
public:
    explicit Answerer(const Options& given) : options(given) {}

    std::string AnswerTo(std::string_view question) {
        Describe();
        if (question == Question::describe) return WriteDescription(description);
        if (question == Question::states) return WriteStates(States());
        if (question.starts_with(Question::remove)) {
            question.remove_prefix(Question::remove.size());
            return WriteRemoval(
                MsiInterface::GetInstance()->UninstallApp(FromUtf8(question), &AnswerToRemoval));
        }
        return {};
    }

private:
    void Describe();
    std::vector<PackageState> States() const;

    const Options& options;
    bool isDescribed = false;
    PackageDescription description;
};

void Answerer::Describe() {
    if (std::exchange(isDescribed, true)) return;
    const Collaborators shared = TheCollaborators();
    shared.localizer.SetLanguageOption(options.SwitchValue(L"lang"));
    const std::optional<OfferedPackages> offered = ReadOfferedPackages(shared);
    if (!offered) {
        description.failure = L"There is no defaultInstallSettings.xml one folder above this program.";
        return;
    }
    const bool hasPrinter =
        shared.settings.GetBool(Tag::HIDE_DISCOVERY) || !options.SwitchValue(L"ip").empty();
    description.vendor = shared.settings.GetString(Tag::OEM);
    description.logFolder = Logger::GetInstance().GetLogFolder();
    description.canRunSilently = shared.settings.GetBool(Tag::SILENT_INSTALL) && hasPrinter;
    description.boxTexts = TextsOfBoxes(shared.localizer);
    AppendEntries(offered->applications, {}, description.packages);
    AppendEntries(offered->drivers, {}, description.packages);
    if (options.dryRun) description.plan = PlanLines(*MsiInterface::GetInstance(), shared.localizer, options);
}

std::vector<PackageState> Answerer::States() const {
    std::vector<PackageState> states;
    for (const PackageEntry& entry : description.packages) {
        PackageState state;
        state.installed = MsiInterface::GetInstance()->IsAppInstalled(entry.path, state.upToDate,
                                                                      state.upgradable, state.minorUpgrade);
        states.push_back(state);
    }
    return states;
}

}  // namespace

int AnswerQuestions(const Options& options) {
    Answerer answerer(options);
    std::string question;
    while (std::getline(std::cin, question)) {
        if (question.ends_with('\r')) question.pop_back();
        std::cout << answerer.AnswerTo(question) << '\n' << std::flush;
    }
    return 0;
}

}  // namespace rollout
