#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace korvel {

/// Tells whether bytes arrive. They are counted on a source's thread; everything else belongs to
/// the source's owner.
class ActivityMeter {
 public:
    void count(std::size_t bytes) {
        arrived_ += static_cast<std::int64_t>(bytes);
        total_ += bytes;
    }
    /// All that came, whatever was asked or cleared. Any thread.
    std::uint64_t total() const { return total_; }
    /// Forgets the bytes that nobody has asked about yet.
    void clear() { arrived_ = 0; }

    /// Whether more than 2 bytes came since the last question, or that much less than 5 s ago.
    bool isReceiving(std::int64_t nowMs) {
        const std::int64_t arrived = arrived_;
        if (arrived > kActivityBytes) {
            arrived_ -= arrived;
            activeMs_ = nowMs;
            return true;
        }
        return activeMs_ && nowMs - *activeMs_ < kActivityMs;
    }

 private:
    static constexpr std::int64_t kActivityBytes = 2;
    static constexpr std::int64_t kActivityMs = 5000;

    std::atomic<std::int64_t> arrived_ = 0;  ///< since the last question that they answered
    std::atomic<std::uint64_t> total_ = 0;
    std::optional<std::int64_t> activeMs_;
};

}  // namespace korvel
