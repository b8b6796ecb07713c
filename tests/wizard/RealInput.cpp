#include "tests/wizard/RealInput.h"

#include <array>
#include <vector>

namespace {

void Send(const INPUT& input) {
    INPUT one = input;
    SendInput(1, &one, sizeof(INPUT));
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{.type = INPUT_KEYBOARD};
    // The system knows the grey keys apart from those of the number block by this flag alone.
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE;
    input.ki = {.wVk = key,
                .wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)),
                .dwFlags = flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0)};
    Send(input);
}

void SendMouse(DWORD flags, int amount = 0) {
    INPUT input{.type = INPUT_MOUSE};
    input.mi = {.mouseData = static_cast<DWORD>(amount), .dwFlags = flags};
    Send(input);
}

// The mouse counts 65,536 units from one edge of the screen to the other.
LONG ToMouseUnits(LONG pixel, int pixels) {
    return (pixel * 65536 + 32768) / pixels;
}

}  // namespace

void PressKeys(std::initializer_list<WORD> keys) {
    const std::vector<WORD> pressed(keys);
    for (const WORD key : pressed) SendKey(key, 0);
    for (auto key = pressed.rbegin(); key != pressed.rend(); ++key) SendKey(*key, KEYEVENTF_KEYUP);
}

void ParkMouse() {
    SetCursorPos(0, 0);
}

void MoveMouse(POINT place) {
    INPUT input{.type = INPUT_MOUSE};
    input.mi = {.dx = ToMouseUnits(place.x, GetSystemMetrics(SM_CXSCREEN)),
                .dy = ToMouseUnits(place.y, GetSystemMetrics(SM_CYSCREEN)),
                .dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE};
    Send(input);
}

void HoldMouse(POINT place) {
    MoveMouse(place);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseMouse() {
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void TurnWheel(POINT place, int notches) {
    MoveMouse(place);
    for (int notch = 0; notch < notches; ++notch) SendMouse(MOUSEEVENTF_WHEEL, -WHEEL_DELTA);
}

POINT MiddleOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}
