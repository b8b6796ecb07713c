// The driver configuration tool of both generations: asks for a few settings and saves them into the file
// that its command line names. With the environment variable HALVENNY_CONFIG_QUIET it saves its proposal and
// asks nothing; the command line itself is laid down by the caller.
#include "package/programs/ConfigTool.h"

#include "package/programs/ConfigProfile.h"
#include "package/programs/SampleFile.h"

namespace {

void ShowProfile(HWND window, const ConfigProfile& profile) {
    SetDlgItemTextW(window, IDC_PROFILE_NAME, profile.name.c_str());
    CheckDlgButton(window, IDC_TWO_SIDED, profile.twoSided ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(window, IDC_SAVE_TONER, profile.saveToner ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(window, IDC_SHADES_OF_GREY, profile.shadesOfGrey ? BST_CHECKED : BST_UNCHECKED);
}

ConfigProfile ReadProfile(HWND window) {
    wchar_t name[200] = {};
    GetDlgItemTextW(window, IDC_PROFILE_NAME, name, static_cast<int>(std::size(name)));
    return {.name = name,
            .twoSided = IsDlgButtonChecked(window, IDC_TWO_SIDED) == BST_CHECKED,
            .saveToner = IsDlgButtonChecked(window, IDC_SAVE_TONER) == BST_CHECKED,
            .shadesOfGrey = IsDlgButtonChecked(window, IDC_SHADES_OF_GREY) == BST_CHECKED};
}

// The profile is the parameter with which the dialog was made.
INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM command, LPARAM parameter) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, parameter);
        ShowProfile(window, *reinterpret_cast<const ConfigProfile*>(parameter));
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    const WORD button = LOWORD(command);
    if (button == IDOK) {
        *reinterpret_cast<ConfigProfile*>(GetWindowLongPtrW(window, DWLP_USER)) = ReadProfile(window);
    }
    if (button == IDOK || button == IDCANCEL) EndDialog(window, button);
    return TRUE;
}

bool AskForProfile(HINSTANCE program, ConfigProfile& profile) {
    if (GetEnvironmentVariableW(L"HALVENNY_CONFIG_QUIET", nullptr, 0) > 0) return true;
    return DialogBoxParamW(program, MAKEINTRESOURCEW(IDD_PROFILE), nullptr, &OnMessage,
                           reinterpret_cast<LPARAM>(&profile)) == IDOK;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, PWSTR, int) {
    const std::wstring file = TargetFile(GetCommandLineW());
    ConfigProfile profile;
    if (file.empty() || !AskForProfile(program, profile)) return 1;
    return WriteSampleFile(file, ProfileDocument(profile), false) ? 0 : 1;
}
