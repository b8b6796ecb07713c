// A shared printer that exists in a test only.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/windows/world/PatchedImport.h"

// Answers this program's question for shares during its life; there is one at a time. The program must find
// the function by its name.
class FakeShare {
public:
    struct Answer {
        DWORD code = NO_ERROR;
        DWORD type = RESOURCETYPE_PRINT;
        std::wstring remoteName;
        // The library does not have the function.
        bool isMissing = false;
        // Runs before the answer, on the thread that asks.
        std::function<void()> before;
    };

    explicit FakeShare(Answer answer);
    FakeShare(const FakeShare&) = delete;
    FakeShare& operator=(const FakeShare&) = delete;
    ~FakeShare() = default;

    // Whether the network was asked.
    bool WasAsked() const;
    // What the last question held.
    NETRESOURCEW Question() const;
    std::wstring AskedName() const;
    DWORD Room() const;

private:
    PatchedImport patch;
};
