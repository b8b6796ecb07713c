// The page for a port by hand, in a window as the wizard puts it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "framework/CDialogEx.h"
#include "ports/AddPortDlg.h"
#include "tests/windows/world/CatalogueWorld.h"
#include "tests/windows/world/TestApp.h"

class AddPortPageWorld : public CatalogueWorld {
protected:
    AddPortPageWorld();

    // Makes the page; what it reads when it is made must be there by then. The texts read from right to left
    // where the direction is "RTL".
    void Open(const std::string& direction = "LTR");
    void Show() { page.ShowWindow(SW_SHOW); }

    HWND At(int control) const { return page.GetDlgItem(control); }
    bool IsShown(int control) const { return (GetWindowLongW(At(control), GWL_STYLE) & WS_VISIBLE) != 0; }
    bool IsEnabled(int control) const { return IsWindowEnabled(At(control)) != FALSE; }
    void Choose(int kind) const;
    // As if the user typed it.
    void Enter(int field, const std::wstring& text) const;
    void SelectPort(int row) const;
    std::wstring Cell(int row, int column) const;
    int Rows() const;
    // The names in the list of drivers, the selected one in brackets.
    std::vector<std::wstring> Drivers() const;
    // Presses Next and confirms the box that comes; gives its text.
    std::wstring PressNextAndConfirm() const;
    void PressNext() const { page.SendMessage(WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(At(IDOK))); }

    TestApp app;
    CDialogEx window;
    DriverConfiguration configuration{Settings(), AppRecords(), DriverRecords()};
    AddPortDlg page{context, AppRecords(), DriverRecords(), configuration};
};
