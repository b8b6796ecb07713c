// The page that shows how far the run is.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "framework/CProgressCtrl.h"
#include "wizard/CQorFlatButton.h"
#include "wizard/InstallDialogEx.h"

// What the library's callback tells the page; the page's handler takes it over with the posted message.
struct ProgressUpdate {
    std::int32_t reserved = 0;
    std::int32_t percent = 0;
    std::wstring text;
};

// The install thread says which package is at work and how many steps are done; the main thread moves the
// bar.
class ProgressDialog : public InstallDialogEx {
public:
    static constexpr UINT dialogTemplate = 129;

    ProgressDialog();

    // Prepares the bar for a run of that many steps. Main thread.
    void BeginRun(int steps);
    // The run turns into a roll-back. Install thread.
    void BeginUninstalling() { uninstalling = true; }
    // Names the package at work; the status line shows it with the next progress. Install thread.
    void SetApplication(const std::wstring& productName);
    // One package more is done. Install thread.
    void MakeStep();
    // Says on the page that the run is being cancelled, and keeps Cancel disabled from then on. Any thread.
    void Cancel();

    // The question whether to cancel is open, on any thread's view: the library waits meanwhile.
    static bool IsCancelPromptOpen();
    // Hands the update to the page; false, with the update dropped, if there is no page.
    static bool Post(std::unique_ptr<ProgressUpdate> update);

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

    std::atomic<int> totalSteps = 0;
    std::atomic<int> currentStep = 0;
    std::atomic<bool> uninstalling = false;
    std::mutex nameLock;
    std::wstring appName;
    bool nameChanged = false;
};
