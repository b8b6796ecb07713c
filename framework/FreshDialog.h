// A dialog as its template makes it now, never shown: the measure for one that is to take a new text size.
#pragma once

#include <windows.h>

class FreshDialog {
public:
    // Made where that window is, which was made from that template; for its thread. Empty if the system
    // refuses. From which side it is read makes no difference: places within a window count from there.
    FreshDialog(UINT dialogTemplate, HWND like);
    FreshDialog(const FreshDialog&) = delete;
    FreshDialog& operator=(const FreshDialog&) = delete;
    ~FreshDialog() { DestroyWindow(dialog); }

    explicit operator bool() const { return dialog != nullptr; }
    // With the frame.
    SIZE Size() const;
    // The font of the template; goes with this object.
    HFONT Letters() const;
    // Puts the controls of the other dialog where those of this one stand.
    void PlaceControlsOf(HWND other) const;

private:
    HWND dialog = nullptr;
};
