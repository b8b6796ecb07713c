// The page for a port by hand, in a window as the wizard puts it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "CatalogueTest.h"
#include "TestApp.h"
#include "framework/CDialogEx.h"
#include "ports/AddPortDlg.h"

namespace PortControl {

inline constexpr int title = 1200;
inline constexpr int kind = 1202;
inline constexpr int list = 1203;
inline constexpr int nameLabel = 1204;
inline constexpr int name = 1205;
inline constexpr int addressLabel = 1206;
inline constexpr int address = 1207;
inline constexpr int pathLabel = 1208;
inline constexpr int path = 1209;
inline constexpr int driverFrame = 1210;
inline constexpr int driverLabel = 1211;
inline constexpr int driverList = 1212;
inline constexpr int configure = 1213;
inline constexpr int back = 1214;
inline constexpr int help = 1057;

}  // namespace PortControl

class AddPortPageTest : public CatalogueTest {
protected:
    AddPortPageTest();

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
    AddPortDlg page;
};
