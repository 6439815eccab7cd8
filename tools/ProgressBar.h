#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// One line on standard error that shows how far long work is, when that is a terminal; nothing
/// otherwise. The line is cleared at the end.
class ProgressBar {
 public:
    ProgressBar();
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// `share` of the work done, 0 to 1, and what is being done. Cheap to call often.
    void show(double share, std::string_view what);
    /// Clears the line, so that something else can be written; the next show() draws it anew.
    void clear();

 private:
    bool onTerminal_;
    std::string shown_;
};

}  // namespace korvel
