#include "wizard/Help.h"

#include <windows.h>

#include <htmlhelp.h>

#include "framework/SystemLibrary.h"

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, const wchar_t*, UINT, DWORD_PTR);

// The viewer stays loaded: its windows live as long as the program.
HWND CallHtmlHelp(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data) {
    static const Library viewer = LoadSystemLibrary(L"hhctrl.ocx");
    const auto htmlHelp = viewer ? FindExport<HtmlHelpFunction>(viewer.get(), "HtmlHelpW") : nullptr;
    return htmlHelp == nullptr ? nullptr : htmlHelp(owner, file, command, data);
}

}  // namespace

void ShowHelpTopic(HWND owner, const std::wstring& file, DWORD topic) {
    CallHtmlHelp(owner, file.c_str(), HH_HELP_CONTEXT, topic);
}
