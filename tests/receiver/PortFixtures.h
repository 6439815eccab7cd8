#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "receiver/SerialPort.h"

namespace korvel {

/// Far beyond what anything here takes, sanitizers included.
inline constexpr std::chrono::seconds kDeadline{30};

/// A value that one thread changes and another waits for.
template <class Value>
class Watched {
 public:
    template <class Change>
    void change(Change&& apply) {
        {
            const std::lock_guard lock(mutex_);
            apply(value_);
        }
        changed_.notify_all();
    }

    /// False when the deadline passed first.
    bool waitUntil(const std::function<bool(const Value&)>& holds) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, kDeadline, [&] { return holds(value_); });
    }

    Value get() const {
        const std::lock_guard lock(mutex_);
        return value_;
    }

 private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    Value value_{};
};

/// Closes the port before the listeners and traces declared above it go away.
class [[nodiscard]] RunningPort {
 public:
    explicit RunningPort(SerialPort& port) : port_(port) {}
    RunningPort(const RunningPort&) = delete;
    RunningPort& operator=(const RunningPort&) = delete;
    ~RunningPort() { port_.close(); }

 private:
    SerialPort& port_;
};

/// Collects lines; optionally does something on the port's thread for each.
class LineCollector final : public LineListener {
 public:
    explicit LineCollector(std::function<void(SerialPort&, std::string_view)> also = {}) : also_(std::move(also)) {}

    void onLine(SerialPort& port, std::string_view text) override {
        lines_.change([&](auto& lines) { lines.emplace_back(text.data()); });
        if (also_) also_(port, text);
    }

    /// The lines once there are `count`, or as many as came until the deadline.
    std::vector<std::string> waitFor(std::size_t count) {
        lines_.waitUntil([&](const auto& lines) { return lines.size() >= count; });
        return lines_.get();
    }

 private:
    Watched<std::vector<std::string>> lines_;
    std::function<void(SerialPort&, std::string_view)> also_;
};

}  // namespace korvel
