// The base of all pages.
#pragma once

#include <atomic>
#include <string>
#include <string_view>

#include "framework/CDialogEx.h"

// A page is created once, hidden, and lives until the process ends. Its windows belong to the main thread.
class InstallDialogEx : public CDialogEx {
public:
    explicit InstallDialogEx(UINT dialogTemplate) : templateId(dialogTemplate) {}

    // Takes the message that the Controller hands on before the page is shown. Pages that need it keep it.
    virtual std::uint32_t ReceiveMessage(std::wstring message);

    UINT TemplateId() const { return templateId; }

    // The walk passes over this page. The install thread reads it too.
    std::atomic<bool> hidden = false;
    // The name by which the Controller finds the page; empty for most.
    std::wstring dialogName;

protected:
    virtual void SetLocalizedText(HWND window, std::wstring_view key);
    virtual std::wstring GetLocalizedText(std::wstring_view key) const;
    // Redraws the part of this page under a control, for controls that let it show through.
    virtual void RedrawControl(HWND control);

    void PreSubclassWindow() override;

private:
    UINT templateId;
};
