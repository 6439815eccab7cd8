#pragma once

#include <mutex>

// Locks that clang's analysis knows (-Wthread-safety): it proves that each one is released on every
// way out and never taken twice. Data are reached through Guarded, whose type says the rest. Other
// compilers wonder at the attributes. One that names a parameter has to be spelt the old way.

namespace korvel {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"

class [[clang::capability("mutex")]] Mutex {
 public:
    // The names that the standard's locks call.
    [[clang::acquire_capability()]] void lock() { mutex_.lock(); }
    [[clang::try_acquire_capability(true)]] bool try_lock() { return mutex_.try_lock(); }
    [[clang::release_capability()]] void unlock() { mutex_.unlock(); }

 private:
    std::mutex mutex_;
};

/// Holds a mutex until the end of its scope.
class [[clang::scoped_lockable]] MutexLock {
 public:
    explicit MutexLock(Mutex& mutex) __attribute__((acquire_capability(mutex)));
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;
    [[clang::release_capability()]] ~MutexLock() { mutex_.unlock(); }

 private:
    Mutex& mutex_;
};

#pragma GCC diagnostic pop

inline MutexLock::MutexLock(Mutex& mutex) : mutex_(mutex) { mutex.lock(); }

}  // namespace korvel
