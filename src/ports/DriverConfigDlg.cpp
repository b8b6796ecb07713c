#include "ports/DriverConfigDlg.h"

#include <shlwapi.h>

#include <new>
#include <string_view>
#include <utility>

#include "CommonLib/Exception.h"
#include "CommonLib/Files.h"
#include "CommonLib/Logger.h"
#include "CommonLib/ProcessStart.h"
#include "CommonLib/ProcessWait.h"
#include "CommonLib/XmlAttributeReader.h"
#include "framework/CFileDialog.h"
#include "framework/Handles.h"
#include "printer/ConfigTool.h"
#include "resources/resource.h"
#include "settings/TagNames.h"
#include "settings/TextKeys.h"
#include "wizard/LocalizedMessage.h"
#include "wizard/RegisteredMessages.h"

namespace {

constexpr WPARAM longestTypedPath = 260;
// By design: one less than can be typed.
constexpr std::size_t charactersRead = 259;

// The name of the first profile, empty where the file names none.
std::wstring ProfileName(const std::wstring& path) {
    std::wstring name;
    try {
        const XmlAttributeReader reader(path);
        reader.GetAttribute(L"/ConfigurationProfiles/PrinterProfiles/PrinterProfile", L"name", name);
    } catch (const std::bad_alloc&) {
        name.clear();
    }
    return name;
}

void LogConfiguration(const std::wstring& path) {
    LogBasic(L"Driver configuration to use: " + path, LogLevel::Success);
}

void LogMissingFile(const std::wstring& path) {
    LogBasic(L"No Driver Configuration file found: " + path, LogLevel::Error);
}

}  // namespace

const MessageMap& DriverConfigDlg::GetMessageMap() const {
    using On = EventsOf<DriverConfigDlg>;
    static const MessageMap map(&Events(), {
                                               On::Message(WM_SHOWWINDOW, &DriverConfigDlg::OnShowWindow),
                                               On::Click(IDC_DRIVER_CONFIG_NEW, &DriverConfigDlg::OnNew),
                                               On::Click(IDC_DRIVER_CONFIG_LOAD, &DriverConfigDlg::OnLoad),
                                               On::Click(IDC_DRIVER_CONFIG_RESET, &DriverConfigDlg::OnReset),
                                           });
    return map;
}

DriverConfigDlg::DriverConfigDlg(const PageContext& context, DriverConfiguration& driverConfiguration,
                                 CWnd& page)
    : InstallDialogEx(context, IDD_DRIVER_CONFIG, HIDD_DRIVER_CONFIG, &page),
      configuration(driverConfiguration) {}

std::uint32_t DriverConfigDlg::ReceiveMessage(std::wstring message) {
    driverId = std::move(message);
    return 0;
}

bool DriverConfigDlg::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    newButton.SubclassDlgItem(IDC_DRIVER_CONFIG_NEW, *this);
    loadButton.SubclassDlgItem(IDC_DRIVER_CONFIG_LOAD, *this);
    resetButton.SubclassDlgItem(IDC_DRIVER_CONFIG_RESET, *this);
    helpButton.SubclassDlgItem(IDC_HELP_BUTTON, *this);
    okButton.SubclassDlgItem(IDOK, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    SetWindowText(GetLocalizedText(TextKey::CONFIG_SETTINGS_TEXT));
    SetUpControl(IDC_DRIVER_CONFIG_TITLE, TextKey::CONFIG_SETTINGS_TEXT, fontHeading);
    SetUpControl(IDC_DRIVER_CONFIG_NEW, TextKey::NEW_FILE, fontButton);
    SetUpControl(IDC_DRIVER_CONFIG_LOAD, TextKey::LOAD_FILE, fontButton);
    SetUpControl(IDC_DRIVER_CONFIG_RESET, TextKey::RESET_TEXT, fontButton);
    SetUpControl(IDC_DRIVER_CONFIG_APPLY_FUTURE, TextKey::CONFIG_APPLY_FUTURE_TEXT, fontBody);
    SetUpControl(IDC_HELP_BUTTON, TextKey::HELP_BUTTON, fontButton);
    SetUpControl(IDOK, TextKey::OK_BUTTON, fontButton);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    SetControlFont(IDC_DRIVER_CONFIG_PATH, fontBody);
    ::SendMessageW(GetDlgItem(IDC_DRIVER_CONFIG_PATH), EM_SETLIMITTEXT, longestTypedPath, 0);
    // The choice is never offered, but its state is still kept.
    EnableControl(IDC_DRIVER_CONFIG_APPLY_FUTURE, false);
    ShowControl(IDC_DRIVER_CONFIG_APPLY_FUTURE, false);
    helpButton.SetSign(L"?");
    helpButton.SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(helpIcon.For(GetSafeHwnd())));
    okButton.SetPrimary();
    return true;
}

LRESULT DriverConfigDlg::OnShowWindow(WPARAM, LPARAM) {
    const std::wstring path = settings.GetString(Tag::DRIVERCONFIG_PATH);
    if (path.empty()) return Default();
    if (!PathExists(path)) {
        LogMissingFile(path);
        OnReset();
        return Default();
    }
    LogAdvanced(L"DriverConfigDlg::OnShowWindow, previous Driver Configuration path setting restored");
    ShowPath(path);
    if (settings.GetBool(Tag::CONFIG_APPLY_FUTURE)) {
        CheckApplyFuture(true);
        LogAdvanced(
            L"DriverConfigDlg::OnShowWindow, previous Driver Configuration Apply to Future checkbox "
            L"restored");
    }
    return Default();
}

void DriverConfigDlg::OnNew() {
    try {
        MakeConfiguration();
    } catch (const Exception& failure) {
        LogBasic(NewConfigurationFailure(failure.getCode()), LogLevel::Error);
    }
}

void DriverConfigDlg::MakeConfiguration() {
    LogAdvanced(L"DriverConfigDlg::OnBnClickedNewButton(), Creating command line for Driver Configuration");
    const std::wstring commandLine = configuration.MakeConfigCommand(driverId);
    const std::wstring file = configuration.MakeConfigFileName(driverId);
    const std::wstring toolPath = configuration.FindConfigTool(driverId);
    // The unpacking may not be done yet; the user presses New again.
    if (!CanBeReadAlone(toolPath)) return;
    const KernelHandle process = StartProcess(toolPath, commandLine, 0);
    if (!process) {
        LogBasic(L"Failure launching Driver Configuration: " + commandLine, LogLevel::Error);
        return;
    }
    // The dialog takes no input while the tool runs, but the list of devices behind it fills.
    WaitForProcess(process.get(), {WM_PAINT, ZVUPDATEDISCOVERYLIST, ZVNOPRINTERFOUND});
    LogAdvanced(L"Returning from Driver Configuration");
    TakeNewFile(file);
}

void DriverConfigDlg::TakeNewFile(const std::wstring& file) {
    if (file.empty()) {
        LogBasic(L"No Driver Configuration file returned (Driver Config cancelled?)", LogLevel::Error);
    } else if (!PathExists(file)) {
        LogMissingFile(file);
    } else {
        ShowPath(file);
        LogConfiguration(file);
    }
}

void DriverConfigDlg::OnLoad() {
    try {
        ChooseFile();
    } catch (const Exception& failure) {
        LogBasic(L"Driver Configuration load exception: " + failure.getFullText(), LogLevel::Error);
    }
}

void DriverConfigDlg::ChooseFile() {
    LogAdvanced(L"DriverConfigDlg::OnBnClickedConfigLoadButton(), Launching file dialog");
    const bool isV4 = IsV4Driver(driverId);
    CFileDialog dialog(isV4 ? L"xdc" : L"zdc", GetConfigurationFolder(),
                       isV4 ? L"(*.xdc)|*.xdc||" : L"(*.zdc)|*.zdc||", *this);
    if (dialog.DoModal() != IDOK) return;
    ShowPath(dialog.GetPathName());
    LogConfiguration(dialog.GetPathName());
}

// The tags stay until OK.
void DriverConfigDlg::OnReset() {
    ::SetWindowTextW(GetDlgItem(IDC_DRIVER_CONFIG_PATH), L"");
    CheckApplyFuture(false);
}

void DriverConfigDlg::OnOK() {
    const std::wstring path = TextOf(IDC_DRIVER_CONFIG_PATH, charactersRead);
    if (path.empty()) return Refuse(TextKey::EMPTY_DRIVERCONFIG_PATH);
    const std::wstring_view extension = PathFindExtensionW(path.c_str());
    const bool isOlder = extension == olderConfigTool.fileExtension;
    if (!PathExists(path) || (!isOlder && extension != v4ConfigTool.fileExtension)) {
        return Refuse(TextKey::INVALID_PATH_TEXT);
    }
    const std::wstring description = isOlder ? ProfileName(path) : std::wstring();
    settings.SetStrings({{Tag::OMBREL_DESC, description},
                         {Tag::DRIVERCONFIG_PATH, path},
                         {Tag::CONFIG_EXE_PATH, configuration.FindConfigTool(driverId)}});
    settings.SetBool(Tag::CONFIG_APPLY_FUTURE,
                     IsDlgButtonChecked(GetSafeHwnd(), IDC_DRIVER_CONFIG_APPLY_FUTURE) == BST_CHECKED);
    configuration.SetOwner(driverId);
    EndDialog(IDOK);
}

void DriverConfigDlg::Refuse(TextId textKey) {
    ShowLocalizedMessage(localizer, GetSafeHwnd(), textKey, TextKey::GEN_ERROR_TITLE);
}

void DriverConfigDlg::ShowPath(const std::wstring& path) {
    ::SetWindowTextW(GetDlgItem(IDC_DRIVER_CONFIG_PATH), path.c_str());
    SelectAll(IDC_DRIVER_CONFIG_PATH);
}

void DriverConfigDlg::CheckApplyFuture(bool checked) {
    CheckDlgButton(GetSafeHwnd(), IDC_DRIVER_CONFIG_APPLY_FUTURE, checked ? BST_CHECKED : BST_UNCHECKED);
}

void OpenDriverConfiguration(CWnd& page, const PageContext& context, DriverConfiguration& configuration,
                             const std::wstring& driverId, std::unique_ptr<DriverConfigDlg>& dialog) {
    configuration.UnpackTool(driverId);
    dialog = std::make_unique<DriverConfigDlg>(context, configuration, page);
    dialog->ReceiveMessage(driverId);
    dialog->DoModal();
}
