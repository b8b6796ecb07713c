// A function of the system that answers as a test wants, for what the system cannot be brought to do.
#pragma once

#include <windows.h>

// Puts another function in place of one that this program imports, until the end of this object's life. The
// name is that in the import table, and whoever asked for the function by its address before is not reached.
class PatchedImport {
public:
    // Throws std::invalid_argument if the program does not import the function.
    template <class Function>
    PatchedImport(const char* function, Function* replacement)
        : PatchedImport(function, reinterpret_cast<void*>(replacement)) {}
    PatchedImport(const PatchedImport&) = delete;
    PatchedImport& operator=(const PatchedImport&) = delete;
    ~PatchedImport() { Put(original); }

private:
    PatchedImport(const char* function, void* replacement);
    void Put(void* function) const;

    void** place;
    void* original;
};
