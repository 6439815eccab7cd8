#pragma once

#include <cstdlib>
#include <string>

#include "system/Environment.h"

namespace korvel {

/// Puts a time zone in force for the process, as TZ gives it, until it goes out of scope.
class TimeZone {
 public:
    explicit TimeZone(const char* zone) {
        if (const char* const former = std::getenv("TZ")) former_ = former;
        setVariable("TZ", zone);
        isInForce_ = rereadTimeZone();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        setVariable("TZ", former_.empty() ? nullptr : former_.c_str());
        rereadTimeZone();
    }

    /// False where the zone is the whole system's, which a test has to leave alone.
    bool isInForce() const { return isInForce_; }

 private:
    std::string former_;
    bool isInForce_ = false;
};

}  // namespace korvel
