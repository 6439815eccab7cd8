#pragma once

#include <string>

#include "paint/ColorScheme.h"

namespace korvel {

/// Goes to and fro between the night's colour scheme and the one that was shown by day.
class NightSwitch {
 public:
    /// A scheme is shown, however it was chosen.
    void show(const std::string& name) {
        shown_ = name;
        if (name != nightSchemeName())
            day_ = name;
    }
    /// The scheme that the switch goes to.
    std::string other() const { return shown_ == nightSchemeName() ? day_ : nightSchemeName(); }

 private:
    std::string day_ = daySchemeName();
    std::string shown_ = day_;
};

}  // namespace korvel
