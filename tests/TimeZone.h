#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

namespace korvel {

/// Puts a time zone in force for the process, as TZ gives it, until it goes out of scope.
class TimeZone {
 public:
    explicit TimeZone(const char* zone) {
        if (const char* const former = std::getenv("TZ")) former_ = former;
        setenv("TZ", zone, 1);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() {
        if (former_.empty())
            unsetenv("TZ");
        else
            setenv("TZ", former_.c_str(), 1);
        tzset();
    }

 private:
    std::string former_;
};

}  // namespace korvel
