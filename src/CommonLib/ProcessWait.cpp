#include "CommonLib/ProcessWait.h"

#include <algorithm>

void WaitForProcess(HANDLE process, std::initializer_list<UINT> handledMessages) {
    constexpr DWORD intervalInMilliseconds = 1000;
    while (WaitForSingleObject(process, intervalInMilliseconds) == WAIT_TIMEOUT) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (std::ranges::find(handledMessages, message.message) == handledMessages.end()) {
                continue;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}
