// The page that shows how far the run is.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "framework/CProgressCtrl.h"
#include "install/IInstallProgress.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

class FileInUseDlg;
class RMFileInUseDlg;

// What the library's callback sends the page; the page's handler takes it over with the posted message.
struct ProgressUpdate {
    std::int32_t reserved = 0;
    std::int32_t percent = 0;
    std::wstring text;
};

// The install thread says which package is at work and how many steps are done; the main thread moves the
// bar.
class ProgressDialog : public InstallDialogEx, public IInstallProgress {
public:
    explicit ProgressDialog(const PageContext& context);

    ProgressDialog(const ProgressDialog&) = delete;
    ProgressDialog& operator=(const ProgressDialog&) = delete;
    ~ProgressDialog() override;

    // IInstallProgress.
    void BeginRun(int steps) override;
    void BeginUninstalling() override { uninstalling = true; }
    void SetApplication(const std::wstring& productName) override;
    void MakeStep() override;
    void Tell(std::int32_t percent) override;
    bool IsCancelPromptOpen() const override { return cancelPromptOpen; }
    std::int32_t AskAboutFilesInUse(const std::optional<std::wstring>& programs) override;
    std::int32_t AskToClosePrograms(const std::optional<std::wstring>& programs) override;
    // Says on the page that the run is being cancelled, and keeps Cancel disabled from then on.
    void Cancel() override;
    void ShowError(TextId textKey, TextId titleKey) override;

protected:
    bool OnInitDialog() override;
    void OnCancel() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnShowWindow(WPARAM shown, LPARAM reason);
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnUpdateProgress(WPARAM, LPARAM update);
    LRESULT OnUpdateCancelText(WPARAM, LPARAM);
    void ShowApplication();
    void FocusStatusLine();

    CProgressCtrl bar;
    CQorFlatButton cancelButton;
    HWND statusLine = nullptr;
    // The furthest position in the present direction; the main thread's own.
    int highestPosition = 0;

    // Each is made for the first question of its kind and then kept; the library's thread's own.
    std::unique_ptr<FileInUseDlg> fileInUseDlg;
    std::unique_ptr<RMFileInUseDlg> rmFileInUseDlg;

    // The window that workers post to; null before it is made.
    std::atomic<HWND> window = nullptr;
    std::atomic<bool> cancelPromptOpen = false;
    std::atomic<bool> cancelRequested = false;
    std::atomic<int> totalSteps = 0;
    std::atomic<int> currentStep = 0;
    std::atomic<bool> uninstalling = false;
    std::mutex nameLock;
    std::wstring appName;
    bool nameChanged = false;
};
