#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <utility>

namespace korvel {

/// A flag that threads can wait for. All operations but moving are safe from any thread.
///
/// A system has only so many handles to give, so an event may turn out empty: test it before
/// use. An empty one is never signalled, and nothing may wait for it.
class Event {
 public:
    enum class Reset {
        Manual,  ///< stays signalled until reset()
        Auto,    ///< a successful wait resets it
    };

    /// What waits for ever.
    static constexpr std::chrono::milliseconds kInfinite{-1};

    /// Empty.
    Event() = default;
    /// Empty when the system has no handle.
    explicit Event(Reset reset);
    Event(Event&& other) noexcept
        : native_(std::exchange(other.native_, kNone)), reset_(other.reset_) {}
    Event& operator=(Event&& other) noexcept {
        std::swap(native_, other.native_);
        std::swap(reset_, other.reset_);
        return *this;
    }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event();

    explicit operator bool() const { return native_ != kNone; }

    void set();
    void reset();

    /// Whether it is signalled; never resets it.
    bool isSet() const;

    /// False when `timeout` passed without the signal.
    bool wait(std::chrono::milliseconds timeout);

    /// The position of the first signalled event of the list; nothing when `timeout` passed.
    static std::optional<std::size_t> waitAny(std::initializer_list<Event*> events,
                                              std::chrono::milliseconds timeout);

    /// The system's handle (a descriptor, or a HANDLE), which is readable or signalled while the
    /// event is. For back ends that wait for other things beside it.
    std::intptr_t native() const { return native_; }

 private:
    static constexpr std::intptr_t kNone = -1;

    std::intptr_t native_ = kNone;
    Reset reset_ = Reset::Manual;
};

}  // namespace korvel
