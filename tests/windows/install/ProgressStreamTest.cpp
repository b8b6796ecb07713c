// A long stream of progress, as the library sends it from its own thread.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include "install/InstallMessages.h"
#include "install/ProgressDialog.h"
#include "resources/resource.h"
#include "tests/windows/resource.h"
#include "tests/windows/world/ObjectCounts.h"
#include "tests/windows/world/SettingsWorld.h"
#include "tests/windows/world/TestApp.h"
#include "tests/wizard/Waiting.h"

namespace {

constexpr int packageCount = 10;
constexpr int messagesPerPackage = 1000;

// Writes down every position that the bar is set to.
class BarWatch {
public:
    explicit BarWatch(HWND control) : window(control) {
        SetWindowSubclass(window, &Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    BarWatch(const BarWatch&) = delete;
    BarWatch& operator=(const BarWatch&) = delete;
    ~BarWatch() { RemoveWindowSubclass(window, &Procedure, 1); }

    std::vector<int> positions;

private:
    static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR watch) {
        if (message == PBM_SETPOS) {
            reinterpret_cast<BarWatch*>(watch)->positions.push_back(static_cast<int>(wParam));
        }
        return DefSubclassProc(control, message, wParam, lParam);
    }

    HWND window;
};

class ProgressStreamTest : public SettingsWorld {
protected:
    ProgressStreamTest() {
        AddTexts("<INSTALLING_TEXT>Installing</INSTALLING_TEXT>");
        EXPECT_TRUE(window.Create(IDD_TEST, nullptr));
        app.SetMainWnd(&window);
        EXPECT_TRUE(page.Create(page.TemplateId(), &window));
        page.BeginRun(packageCount);
        DeliverMessagesTo(&page);
    }
    ~ProgressStreamTest() override { DeliverMessagesTo(nullptr); }

    // Sends the stream and handles it until nothing of it is left.
    void Stream() {
        std::atomic<bool> sent = false;
        std::thread library([&] {
            SendPackages();
            sent = true;
        });
        EXPECT_TRUE(WaitUntil([&] {
            PumpMessages();
            return sent.load();
        }));
        library.join();
        PumpMessages();
    }

    TestApp app;
    CDialogEx window;
    ProgressDialog page{context};

private:
    // Each package's percentage goes up and falls back over and over.
    void SendPackages() {
        for (int package = 0; package < packageCount; ++package) {
            page.SetApplication(L"Package");
            for (int count = 0; count < messagesPerPackage; ++count) {
                const bool last = count + 1 == messagesPerPackage;
                const int percent = last ? 100 : count * 37 % 50 + count / 20;
                OnInstallMessage((L"<PERCENT>" + std::to_wstring(percent) + L"</PERCENT>").c_str());
            }
            if (package + 1 < packageCount) page.MakeStep();
        }
    }
};

TEST_F(ProgressStreamTest, MovesTheBarForwardAndOncePerChange) {
    const BarWatch watch(page.GetDlgItem(IDC_PROGRESS_BAR));
    Stream();
    ASSERT_FALSE(watch.positions.empty());
    EXPECT_EQ(std::adjacent_find(watch.positions.begin(), watch.positions.end(), std::greater_equal<>()),
              watch.positions.end());
    EXPECT_EQ(watch.positions.back(), packageCount * 100);
}

TEST_F(ProgressStreamTest, LeavesNothingBehind) {
    Stream();
    EXPECT_TRUE(::LeavesNothingBehind([this] { Stream(); }));
}

}  // namespace
