#include "tools/ProgressBar.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "platform/Terminal.h"

namespace korvel {

ProgressBar::ProgressBar() : onTerminal_(errorOutputIsTerminal()) {}

ProgressBar::~ProgressBar() { clear(); }

void ProgressBar::show(double share, std::string_view what) {
    if (!onTerminal_)
        return;
    constexpr int kWidth = 40;
    const double bounded = std::clamp(share, 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(bounded * kWidth);
    std::string line = "[" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] " +
                       std::to_string(static_cast<int>(bounded * 100)) + " % ";
    line += what;
    if (line == shown_)
        return;
    const std::size_t rest = line.size() < shown_.size() ? shown_.size() - line.size() : 0;
    std::cerr << '\r' << line << std::string(rest, ' ') << std::flush;
    shown_ = std::move(line);
}

void ProgressBar::clear() {
    if (!shown_.empty())
        std::cerr << '\r' << std::string(shown_.size(), ' ') << '\r' << std::flush;
    shown_.clear();
}

}  // namespace korvel
