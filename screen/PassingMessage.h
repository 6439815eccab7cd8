#pragma once

#include <string>
#include <utility>

namespace korvel {

/// What stands on the screen for five seconds.
class PassingMessage {
 public:
    static constexpr int kTicks = 10;  ///< of half a second

    /// In place of the one before. Of lines that end with "\r\n" the "\n" is left.
    void say(std::string message) {
        std::erase(message, '\r');
        text_ = std::move(message);
        ticks_ = kTicks;
    }

    /// One half-second tick; true when the message goes with it.
    bool tick() {
        if (ticks_ == 0 || --ticks_ > 0)
            return false;
        text_.clear();
        return true;
    }

    /// Empty for nothing.
    const std::string& text() const { return text_; }

 private:
    std::string text_;
    int ticks_ = 0;  // until it goes
};

}  // namespace korvel
