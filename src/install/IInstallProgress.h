// How the install run reaches the page that shows it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "settings/TextKeys.h"

class IInstallProgress {
public:
    IInstallProgress() = default;
    IInstallProgress(const IInstallProgress&) = delete;
    IInstallProgress& operator=(const IInstallProgress&) = delete;
    virtual ~IInstallProgress() = default;

    // Prepares the bar for a run of that many steps. Main thread.
    virtual void BeginRun(int steps) = 0;

    // The install thread calls these. The run turns into a roll-back:
    virtual void BeginUninstalling() = 0;
    // Names the package at work; the page shows it with the next progress.
    virtual void SetApplication(const std::wstring& productName) = 0;
    // One package more is done.
    virtual void MakeStep() = 0;

    // The library's thread calls these, also when the page's window is gone. How far the package at work is:
    virtual void Tell(std::int32_t percent) = 0;
    // The user is being asked whether to cancel; the library waits meanwhile.
    virtual bool IsCancelPromptOpen() const = 0;
    // Both ask about programs that hold files open, and wait for the answer, a button's id. Without names
    // those of the question before are shown.
    virtual std::int32_t AskAboutFilesInUse(const std::optional<std::wstring>& programs) = 0;
    virtual std::int32_t AskToClosePrograms(const std::optional<std::wstring>& programs) = 0;

    // The run is being cancelled. Any thread.
    virtual void Cancel() = 0;
    // Shows the box with the texts of these keys and waits for it. Any thread.
    virtual void ShowError(TextId textKey, TextId titleKey) = 0;
};
