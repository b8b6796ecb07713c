// The switch in front of a changed expression: one program holds all mutants, and the environment says which
// one it is. A program without a choice notes which of them it comes to. On Windows it shares the notes with
// the programs that it starts, as long as it runs.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <atomic>
#include <cstdlib>

constexpr int mostMutants = 1 << 15;

// Returns the place of the notes, of mostMutants flags.
inline std::atomic<bool>* ReachedMutants() {
    static std::atomic<bool> own[mostMutants];
#ifdef _WIN32
    static const HANDLE mapping =
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, mostMutants, L"reached-mutants");
    static void* const shared =
        mapping != nullptr ? MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0) : nullptr;
    if (shared != nullptr) return static_cast<std::atomic<bool>*>(shared);
#endif
    return own;
}

// Returns the number of the mutant that is switched on; 0 if none is.
inline int ChosenMutant() {
    static const int chosen = [] {
        const char* number = std::getenv("KESTRUNE_MUTANT");
        return number != nullptr ? std::atoi(number) : 0;
    }();
    return chosen;
}

inline bool IsMutant(int number) {
    if (ChosenMutant() == 0) ReachedMutants()[number].store(true, std::memory_order_relaxed);
    return ChosenMutant() == number;
}
