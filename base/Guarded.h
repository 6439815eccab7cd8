#pragma once

#include <mutex>
#include <optional>
#include <utility>

#include "base/ThreadSafety.h"

namespace korvel {

/// A value that can only be reached while its lock is held: `auto fix = guarded.lock();
/// fix->altitudeFt = 3;`. The handle releases the lock when it goes out of scope.
template <class Value>
class Guarded {
 public:
    template <class Content>
    class Handle {
     public:
        Handle(Mutex& mutex, Content& value) : lock_(mutex), value_(&value) {}
        Content& operator*() const { return *value_; }
        Content* operator->() const { return value_; }

     private:
        std::unique_lock<Mutex> lock_;
        Content* value_;
    };

    Guarded() = default;
    explicit Guarded(Value value) : value_(std::move(value)) {}

    [[nodiscard]] Handle<Value> lock() { return {mutex_, value_}; }
    [[nodiscard]] Handle<const Value> lock() const { return {mutex_, value_}; }
    /// A copy without waiting: nothing when somebody else holds the lock.
    [[nodiscard]] std::optional<Value> copyIfFree() const {
        if (!mutex_.try_lock())
            return std::nullopt;
        std::optional<Value> copy(value_);
        mutex_.unlock();
        return copy;
    }

 private:
    mutable Mutex mutex_;
    Value value_{};
};

}  // namespace korvel
