#include "install/ProgressDialog.h"

#include <utility>

#include "CommonLib/Logger.h"
#include "framework/CWinApp.h"
#include "install/FileInUseDlg.h"
#include "install/ProgressPosition.h"
#include "install/RMFileInUseDlg.h"
#include "resources/resource.h"
#include "settings/TextKeys.h"
#include "wizard/Controller.h"
#include "wizard/LocalizedMessage.h"
#include "wizard/PageNames.h"
#include "wizard/RegisteredMessages.h"

namespace {

constexpr int stepWidth = 100;

// The names stay those of the question before where a new one has none.
template <class Dialog>
std::int32_t Ask(std::unique_ptr<Dialog>& dialog, const PageContext& context,
                 const std::optional<std::wstring>& programs) {
    if (!dialog) dialog = std::make_unique<Dialog>(context);
    if (programs) dialog->SetApplicationName(*programs);
    return static_cast<std::int32_t>(dialog->DoModal());
}

}  // namespace

const MessageMap& ProgressDialog::GetMessageMap() const {
    using On = EventsOf<ProgressDialog>;
    static const MessageMap map(&Events(),
                                {
                                    On::Message(WM_SHOWWINDOW, &ProgressDialog::OnShowWindow),
                                    On::Message(WM_PAINT, &ProgressDialog::OnPaint),
                                    On::Message(MYUPDATEPROGRESS, &ProgressDialog::OnUpdateProgress),
                                    On::Message(MYUPDATECANCELTEXT, &ProgressDialog::OnUpdateCancelText),
                                });
    return map;
}

ProgressDialog::~ProgressDialog() = default;

ProgressDialog::ProgressDialog(const PageContext& context) : InstallDialogEx(context, IDD_PROGRESS) {
    dialogName = PageName::progress;
}

bool ProgressDialog::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    statusLine = GetDlgItem(IDC_PROGRESS_STATUS_LINE);
    bar.SubclassDlgItem(IDC_PROGRESS_BAR, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    SetUpControl(IDC_PROGRESS_STATUS_LINE, TextKey::PREPARE_INSTALL_TEXT, fontBody);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    window = GetSafeHwnd();
    return true;
}

LRESULT ProgressDialog::OnShowWindow(WPARAM, LPARAM) {
    FocusStatusLine();
    SetLocalizedText(statusLine, TextKey::PREPARE_INSTALL_TEXT);
    bar.SetPos(0);
    return Default();
}

LRESULT ProgressDialog::OnPaint(WPARAM, LPARAM) {
    const bool canCancel = !cancelPromptOpen && !cancelRequested;
    if (!canCancel && GetFocus() == cancelButton.GetSafeHwnd()) FocusStatusLine();
    cancelButton.EnableWindow(canCancel);
    return Default();
}

void ProgressDialog::OnCancel() {
    cancelPromptOpen = true;
    controller.Cancel(false);
    cancelPromptOpen = false;
    // The next paint settles the button's state, and nobody else asks for one.
    InvalidateRect(GetSafeHwnd(), nullptr, FALSE);
    // The question gives the focus back to the button, which does not take it while it is disabled.
    if (GetFocus() == nullptr && IsWindowVisible(GetSafeHwnd()) != FALSE) FocusStatusLine();
}

LRESULT ProgressDialog::OnUpdateProgress(WPARAM, LPARAM parameter) {
    const std::unique_ptr<ProgressUpdate> update(reinterpret_cast<ProgressUpdate*>(parameter));
    if (!update) return ERROR_INVALID_PARAMETER;
    ShowApplication();
    int low = 0;
    int high = 0;
    bar.GetRange(low, high);
    const BarMove move = MoveBar(currentStep, update->percent, highestPosition, low, high, uninstalling);
    if (!move.inRange) return ERROR_INVALID_PARAMETER;
    if (move.position) {
        highestPosition = *move.position;
        bar.SetPos(highestPosition);
    }
    return 0;
}

void ProgressDialog::ShowApplication() {
    std::wstring name;
    {
        const std::lock_guard guard(nameLock);
        if (!std::exchange(nameChanged, false)) return;
        name = appName;
    }
    const auto key = uninstalling ? TextKey::UNINSTALLING_TEXT : TextKey::INSTALLING_TEXT;
    ::SetWindowTextW(statusLine, (GetLocalizedText(key) + L" " + name).c_str());
    RedrawControl(statusLine);
    FocusStatusLine();
}

// A screen reader reads what takes the focus; the bar first, so that the line takes it anew each time.
void ProgressDialog::FocusStatusLine() {
    bar.SetFocus();
    ::SetFocus(statusLine);
}

LRESULT ProgressDialog::OnUpdateCancelText(WPARAM, LPARAM) {
    LogAdvanced(L"Updating Cancel Text");
    SetLocalizedText(statusLine, TextKey::CANCELING_TEXT);
    RedrawControl(statusLine);
    return 0;
}

void ProgressDialog::BeginRun(int steps) {
    totalSteps = steps;
    currentStep = 0;
    highestPosition = 0;
    // By design: the range's upper bound has 16 bits, which cuts it.
    bar.SetRange(0, static_cast<short>(steps * stepWidth));
}

void ProgressDialog::SetApplication(const std::wstring& productName) {
    const std::lock_guard guard(nameLock);
    appName = productName;
    nameChanged = true;
}

void ProgressDialog::MakeStep() {
    currentStep = NextStep(currentStep, totalSteps, uninstalling);
}

void ProgressDialog::Cancel() {
    LogAdvanced(L"ProgressDialog::Cancel called");
    PostMessage(MYUPDATECANCELTEXT);
    cancelRequested = true;
}

void ProgressDialog::Tell(std::int32_t percent) {
    const HWND target = window;
    if (target == nullptr || AfxGetMainWnd() == nullptr || AfxGetMainWnd()->GetSafeHwnd() == nullptr) return;
    auto update = std::make_unique<ProgressUpdate>();
    update->percent = percent;
    if (::PostMessageW(target, MYUPDATEPROGRESS, 0, reinterpret_cast<LPARAM>(update.get())) == FALSE) return;
    // The message owns the update now, and its handler takes it up again.
    static_cast<void>(update.release());
}

std::int32_t ProgressDialog::AskAboutFilesInUse(const std::optional<std::wstring>& programs) {
    return Ask(fileInUseDlg, Context(), programs);
}

std::int32_t ProgressDialog::AskToClosePrograms(const std::optional<std::wstring>& programs) {
    return Ask(rmFileInUseDlg, Context(), programs);
}

void ProgressDialog::ShowError(TextId textKey, TextId titleKey) {
    if (const CWnd* const mainWindow = AfxGetMainWnd()) {
        ShowLocalizedMessage(localizer, mainWindow->GetSafeHwnd(), textKey, titleKey);
    }
}
