#include "framework/TextSize.h"

#include <atomic>

#include "framework/DialogTemplate.h"

namespace {

constexpr DWORD plainSize = 100;
constexpr DWORD largestSize = 225;

std::atomic<int> grownPoints = templatePoints;
std::atomic<UINT> largestDialog = 0;

// In percent. What the settings cannot have written counts as not set.
DWORD SizeOfUser() {
    DWORD percent = 0;
    DWORD size = sizeof(percent);
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility",
                                        L"TextScaleFactor", RRF_RT_REG_DWORD, nullptr, &percent, &size);
    return status == ERROR_SUCCESS && percent > plainSize && percent <= largestSize ? percent : plainSize;
}

SIZE RoomOnScreen() {
    RECT room{};
    if (SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0) == FALSE)
        return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return {room.right - room.left, room.bottom - room.top};
}

bool Fits(UINT dialog, int points) {
    DialogTemplate grown(dialog);
    if (grown.IsEmpty()) return false;
    grown.Grow(points, templatePoints);
    const SIZE size = grown.SizeOnScreen();
    const SIZE room = RoomOnScreen();
    return size.cx <= room.cx && size.cy <= room.cy;
}

}  // namespace

void FollowTextSize(UINT largestTemplate) {
    largestDialog = largestTemplate;
    FollowTextSize();
}

void FollowTextSize() {
    int points = templatePoints * static_cast<int>(SizeOfUser()) / static_cast<int>(plainSize);
    while (points > templatePoints && !Fits(largestDialog, points)) --points;
    grownPoints = points;
}

int GrownPoints() {
    return grownPoints;
}
