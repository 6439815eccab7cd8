#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>

namespace korvel {

/// A flag that threads can wait for. All operations are safe from any thread. The constructor
/// throws std::system_error when the system has no more handles to give.
class Event {
 public:
    enum class Reset {
        Manual,  ///< stays signalled until reset()
        Auto,    ///< a successful wait resets it
    };

    /// What waits for ever.
    static constexpr std::chrono::milliseconds kInfinite{-1};

    explicit Event(Reset reset);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event();

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
    std::intptr_t native_;
    Reset reset_;
};

}  // namespace korvel
