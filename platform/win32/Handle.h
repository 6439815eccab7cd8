#pragma once

#include <utility>
#include <windows.h>

namespace korvel {

/// Owns a system handle; neither of the system's two values for "none" is closed.
class Handle {
 public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { reset(); }

    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }

    void reset() {
        if (*this)
            CloseHandle(handle_);
        handle_ = nullptr;
    }

 private:
    HANDLE handle_ = nullptr;
};

}  // namespace korvel
