// The running installation, as a custom action sees it.
#pragma once

#include <windows.h>

#include <msi.h>

#include <string>

#include "standins/PrinterQueue/Surroundings.h"

namespace printerqueue {

class InstallerSession : public IReport {
public:
    explicit InstallerSession(MSIHANDLE installOfAction) : install(installOfAction) {}

    // Returns the empty text for a property that is not set.
    std::wstring Property(const wchar_t* name) const;
    void SetProperty(const wchar_t* name, const std::wstring& value) const;
    // Returns the text with [NAME] replaced by the value of each property or folder.
    std::wstring Formatted(const std::wstring& text) const;

    void Say(const std::wstring& text) override;
    bool IsCancelled() override;
    // Shows an error as one of the package.
    void ShowError(const std::wstring& text) const;

private:
    int Send(INSTALLMESSAGE kind, const std::wstring& text) const;

    MSIHANDLE install;
    std::wstring lastText;
};

}  // namespace printerqueue
