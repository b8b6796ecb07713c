// The dialog in which the user says where to search, in a window, and its user.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "discovery/ModifySearchDlg.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"

class SearchDialogWorld : public SettingsWorld {
protected:
    SearchDialogWorld();

    // Opens the dialog on a stored search.
    void Open(const std::wstring& search = {});
    HWND At(int id) const { return dialog.GetDlgItem(id); }
    void Choose(int radio) const { SendMessageW(At(radio), BM_CLICK, 0, 0); }
    void Type(int field, const std::wstring& text) const { SetWindowTextW(At(field), text.c_str()); }
    // Chooses the search for a host, or for a subnet, and fills its fields.
    void TypeHost(const std::wstring& host) const;
    void TypeSubnet(const std::wstring& address, const std::wstring& mask) const;
    std::wstring Text(int field) const;
    bool IsChecked(int radio) const { return SendMessageW(At(radio), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsEnabled(int id) const { return IsWindowEnabled(At(id)) != FALSE; }
    // The user pauses, for longer than the check waits.
    void Pause() const { dialog.SendMessage(WM_TIMER, 0); }
    void Confirm() const { dialog.SendMessage(WM_COMMAND, IDOK); }
    // The search that is stored.
    static std::wstring Search();

    // What the fields have said in balloons.
    const std::vector<std::wstring>& balloons;
    TestApp app;
    CDialogEx window;
    ModifySearchDlg dialog{context, window};
};
