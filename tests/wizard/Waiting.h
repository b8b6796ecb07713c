// Waiting for a condition, with a limit.
#pragma once

#include <chrono>
#include <thread>

// Long enough for a loaded machine: whoever runs into it has found a program that hangs.
inline constexpr std::chrono::seconds patience{30};

// Tests the condition until it holds. False if it does not within the limit.
template <class Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds limit = patience) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}
