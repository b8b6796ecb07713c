// A service that keeps what a screen reader is told of controls, in place of the system's.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "CommonLib/Com.h"
#include "tests/windows/world/PatchedImport.h"

// Answers this thread until the end of this object's life; one at a time.
class FakeAnnotations {
public:
    FakeAnnotations();
    FakeAnnotations(const FakeAnnotations&) = delete;
    FakeAnnotations& operator=(const FakeAnnotations&) = delete;
    ~FakeAnnotations();

    static std::optional<LONG> RoleOf(HWND control);
    // Empty without one.
    static std::wstring DescriptionOf(HWND control);
    // Whether changes of the control's text are to be said.
    static bool IsNews(HWND control);
    // How many properties are kept of all controls.
    static std::size_t Count();
    // The events that were raised, each with its control, since the last call.
    static std::vector<std::pair<DWORD, HWND>> TakeEvents();

private:
    ComApartment apartment{COINIT_APARTMENTTHREADED};
    PatchedImport events;
    DWORD registration;
};
