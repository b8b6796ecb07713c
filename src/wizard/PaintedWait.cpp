#include "wizard/PaintedWait.h"

#include <windows.h>

#include "CommonLib/ProcessWait.h"
#include "framework/AfxBeginThread.h"
#include "framework/Handles.h"
#include "wizard/RegisteredMessages.h"

namespace {

class WaitCursor {
public:
    WaitCursor() = default;
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(former); }

private:
    HCURSOR former = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
};

// Says that the work is done, however it ends.
class Signal {
public:
    explicit Signal(HANDLE raised) : event(raised) {}
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() { SetEvent(event); }

private:
    HANDLE event;
};

}  // namespace

bool RunPainted(const std::function<bool()>& work) {
    const WaitCursor cursor;
    const KernelHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    bool result = false;
    const auto step = [&] {
        const Signal signal(done.get());
        result = work();
        return 0U;
    };
    if (!done || !AfxBeginThread(step)) return work();
    WaitForProcess(done.get(), {WM_PAINT, ZVUPDATEDISCOVERYLIST, ZVNOPRINTERFOUND});
    return result;
}
