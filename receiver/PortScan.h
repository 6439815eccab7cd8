#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "receiver/PortSettings.h"

namespace korvel {

/// The order in which ports and speeds are tried for a receiver, and how long each one is. It goes
/// round for as long as it takes, each time 500 ms slower. Times are milliseconds of the clock's
/// ticks.
class PortScan {
 public:
    /// The usual ports and speeds.
    static PortScan ofAllPorts();
    /// For a receiver that has left the port it was on: that port again before each of the others
    /// that it may have come back as, all at its speed.
    static PortScan around(const PortSettings& lost);

    /// Begins there, if that is one of the entries; the others follow in their order.
    void beginWith(const PortSettings& entry);
    /// A port that belongs to something else. Its name stands without a colon.
    void leaveOut(std::string_view name);

    /// False before the first entry, and again when the last port of a round did not open.
    [[nodiscard]] bool isAtEntry() const { return index_ >= 0; }
    [[nodiscard]] const PortSettings& entry() const {
        return entries_.at(static_cast<std::size_t>(index_));
    }
    /// -1 when there is none.
    [[nodiscard]] int index() const { return index_; }

    /// Goes on to the next entry and gives it its time.
    void next(std::int64_t nowMs);
    /// The entry is to be opened again: the next one to be gone on to is this.
    void stay() { stays_ = true; }
    /// Gives the entry its time anew: it has shown that something is there.
    void renew(std::int64_t nowMs) { deadlineMs_ = nowMs + dwellMs_; }
    [[nodiscard]] bool isOver(std::int64_t nowMs) const { return nowMs >= deadlineMs_; }

    /// The port does not open: its other speeds are passed over.
    void skipPort();
    /// What speaks here is no receiver. The entry is tried last from now on.
    void putLast();

 private:
    explicit PortScan(std::vector<PortSettings> entries) : entries_(std::move(entries)) {}

    [[nodiscard]] int count() const { return static_cast<int>(entries_.size()); }

    std::vector<PortSettings> entries_;
    int index_ = -1;
    bool stays_ = false;
    int last_ = 0;  // entries at the end that were put there
    std::int64_t dwellMs_ = 0;
    std::int64_t deadlineMs_ = 0;
};

}  // namespace korvel
