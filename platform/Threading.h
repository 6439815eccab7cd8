#pragma once

#include <functional>
#include <thread>

#include "platform/Event.h"

namespace korvel {

/// Where threads and what they wait for come from. A system can run out of both; whoever needs
/// them takes them here, so that tests can let that happen. Safe from any thread.
class Threading {
 public:
    Threading() = default;
    Threading(const Threading&) = delete;
    Threading& operator=(const Threading&) = delete;
    virtual ~Threading() = default;

    /// Empty when the system has none to give.
    [[nodiscard]] virtual Event makeEvent(Event::Reset reset) = 0;

    /// Not joinable when the system has none to give, and then nothing runs.
    [[nodiscard]] virtual std::thread startThread(std::function<void()> run) = 0;
};

/// The system's own.
Threading& systemThreading();

}  // namespace korvel
