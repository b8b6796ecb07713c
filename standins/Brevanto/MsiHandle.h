#pragma once

#include <windows.h>

#include <msi.h>

#include <utility>

namespace brevanto {

// Owns a handle of Windows Installer: a database, a view, a record.
class MsiHandle {
public:
    MsiHandle() = default;
    explicit MsiHandle(MSIHANDLE handle) : handle_(handle) {}
    MsiHandle(MsiHandle&& other) noexcept : handle_(std::exchange(other.handle_, 0)) {}
    MsiHandle& operator=(MsiHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~MsiHandle() { Reset(); }

    MSIHANDLE Get() const { return handle_; }

    // Closes what is held and returns the place for an operation to write a new handle into.
    MSIHANDLE* Receive() {
        Reset();
        return &handle_;
    }

private:
    void Reset() {
        if (handle_ != 0) MsiCloseHandle(handle_);
        handle_ = 0;
    }

    MSIHANDLE handle_ = 0;
};

}  // namespace brevanto
