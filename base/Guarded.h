#pragma once

#include <mutex>
#include <utility>

namespace korvel {

/// A value that can only be reached while its lock is held: `auto fix = guarded.lock();
/// fix->altitudeFt = 3;`. The handle releases the lock when it goes out of scope.
template <class Value>
class Guarded {
 public:
    template <class Content>
    class Handle {
     public:
        Handle(std::mutex& mutex, Content& value) : lock_(mutex), value_(&value) {}
        Handle(std::unique_lock<std::mutex> held, Content& value)
            : lock_(std::move(held)), value_(&value) {}
        Content& operator*() const { return *value_; }
        Content* operator->() const { return value_; }
        /// False only for a handle from tryLock() that found the lock busy.
        explicit operator bool() const { return lock_.owns_lock(); }

     private:
        std::unique_lock<std::mutex> lock_;
        Content* value_;
    };

    Guarded() = default;
    explicit Guarded(Value value) : value_(std::move(value)) {}

    [[nodiscard]] Handle<Value> lock() { return {mutex_, value_}; }
    [[nodiscard]] Handle<const Value> lock() const { return {mutex_, value_}; }
    /// Does not wait; test the handle before use.
    [[nodiscard]] Handle<Value> tryLock() {
        return {std::unique_lock<std::mutex>(mutex_, std::try_to_lock), value_};
    }

 private:
    mutable std::mutex mutex_;
    Value value_{};
};

}  // namespace korvel
