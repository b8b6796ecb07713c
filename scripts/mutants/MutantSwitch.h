// The switch in front of a changed expression: one program holds all mutants, and the environment says which
// one it is. A program without a choice notes which of them it comes to.
#pragma once

#include <atomic>
#include <cstdlib>

constexpr int mostMutants = 1 << 15;

inline std::atomic<bool> reachedMutants[mostMutants];

// Returns the number of the mutant that is switched on; 0 if none is.
inline int ChosenMutant() {
    static const int chosen = [] {
        const char* number = std::getenv("KESTRUNE_MUTANT");
        return number != nullptr ? std::atoi(number) : 0;
    }();
    return chosen;
}

inline bool IsMutant(int number) {
    if (ChosenMutant() == 0) reachedMutants[number].store(true, std::memory_order_relaxed);
    return ChosenMutant() == number;
}
