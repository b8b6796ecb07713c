#include "install/ProgressDialog.h"

#include <utility>

#include "CommonLib/Logger.h"
#include "install/ProgressPosition.h"
#include "settings/TagNames.h"
#include "wizard/Controller.h"
#include "wizard/RegisteredMessages.h"

namespace {

constexpr int statusLineId = 1000;
constexpr int barId = 1001;
constexpr int stepWidth = 100;

std::atomic<HWND> progressWindow = nullptr;
std::atomic<bool> cancelPromptOpen = false;
std::atomic<bool> cancelRequested = false;

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

ProgressDialog::ProgressDialog() : InstallDialogEx(dialogTemplate) {
    dialogName = L"Progress Dialog";
}

bool ProgressDialog::OnInitDialog() {
    InstallDialogEx::OnInitDialog();
    statusLine = GetDlgItem(statusLineId);
    bar.SubclassDlgItem(barId, *this);
    cancelButton.SubclassDlgItem(IDCANCEL, *this);
    SetUpControl(statusLineId, TextKey::PREPARE_INSTALL_TEXT, fontBody);
    SetUpControl(IDCANCEL, TextKey::CANCEL_BUTTON, fontButton);
    progressWindow = GetSafeHwnd();
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
    Controller::GetInstance().Cancel(false);
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
    // The range's upper bound has 16 bits, which cuts it, and this is meant.
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

bool ProgressDialog::IsCancelPromptOpen() {
    return cancelPromptOpen;
}

bool ProgressDialog::Post(std::unique_ptr<ProgressUpdate> update) {
    if (::PostMessageW(progressWindow, MYUPDATEPROGRESS, 0, reinterpret_cast<LPARAM>(update.get())) ==
        FALSE) {
        return false;
    }
    // The message owns the update now, and its handler takes it up again.
    static_cast<void>(update.release());
    return true;
}
