#include "receiver/ReplayScript.h"

#include <cstddef>
#include <optional>

namespace korvel {
namespace {

constexpr std::int64_t kUsualPeriodMs = 1000;
constexpr std::int64_t kLongestPeriodMs = 2000;
constexpr std::int64_t kDayMs = 24LL * 60 * 60 * 1000;

/// The field of a sentence by its number; field 0 is the sentence's name. Empty when it has fewer.
std::string_view fieldOf(std::string_view line, std::size_t number) {
    for (; number > 0; --number) {
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos)
            return {};
        line.remove_prefix(comma + 1);
    }
    return line.substr(0, line.find_first_of(",*\r\n"));
}

/// Milliseconds since midnight from "hhmmss" with an optional fraction.
std::optional<std::int64_t> timeFromField(std::string_view field) {
    constexpr std::size_t kWholeDigits = 6;
    if (field.size() < kWholeDigits)
        return std::nullopt;
    std::int64_t digits = 0;
    for (const char c : field.substr(0, kWholeDigits)) {
        if (c < '0' || c > '9')
            return std::nullopt;
        digits = digits * 10 + (c - '0');
    }
    std::int64_t ms = ((digits / 10000 * 60 + digits / 100 % 100) * 60 + digits % 100) * 1000;
    if (field.size() > kWholeDigits && field[kWholeDigits] == '.') {
        std::int64_t weight = 100;
        for (const char c : field.substr(kWholeDigits + 1)) {
            if (c < '0' || c > '9' || weight == 0)
                break;
            ms += (c - '0') * weight;
            weight /= 10;
        }
    }
    return ms % kDayMs;
}

std::optional<std::int64_t> timeOf(std::string_view line) {
    const std::string_view name = fieldOf(line, 0);
    if (name.size() != 6 || name.front() != '$')
        return std::nullopt;
    const std::string_view kind = name.substr(3);
    if (kind == "RMC" || kind == "GGA")
        return timeFromField(fieldOf(line, 1));
    return kind == "GLL" ? timeFromField(fieldOf(line, 5)) : std::nullopt;
}

/// Satellites in view take several sentences in one burst; bytes that are no sentence say nothing.
bool isRepeatedInBurst(std::string_view name) {
    return name.size() != 6 || name.substr(3) == "GSV" || name.substr(3) == "GSA";
}

/// Receivers end each sentence with CR LF; logs are often kept with a bare LF.
void appendLine(std::string& bytes, std::string_view line) {
    const bool lacksReturn =
        line.starts_with('$') && line.ends_with('\n') && !line.ends_with("\r\n");
    bytes += lacksReturn ? line.substr(0, line.size() - 1) : line;
    if (lacksReturn)
        bytes += "\r\n";
}

/// Decides, line by line, where a burst ends.
class BurstFinder {
 public:
    /// Milliseconds from the burst in progress to the one that this line begins; nothing when it
    /// still belongs to the one in progress.
    std::optional<std::int64_t> next(std::string_view line) {
        const std::string_view name = fieldOf(line, 0);
        const std::optional<std::int64_t> time = timeOf(line);
        std::optional<std::int64_t> gap;
        if (time && time_) {
            if (*time != *time_) {
                const std::int64_t passed = (*time - *time_ + kDayMs) % kDayMs;
                gap = passed <= kLongestPeriodMs ? passed : kUsualPeriodMs;
            }
        } else if (name == first_ && !isRepeatedInBurst(name)) {
            gap = kUsualPeriodMs;
        }
        if (gap || first_.empty()) {
            first_ = std::string(name);
            time_.reset();
        }
        if (time)
            time_ = time;
        return gap;
    }

 private:
    std::string first_;                 // name of the first sentence of the burst in progress
    std::optional<std::int64_t> time_;  // its time, ms since midnight
};

}  // namespace

std::vector<ReplayStep> makeReplayScript(std::string_view log) {
    std::vector<ReplayStep> script;
    BurstFinder finder;
    while (!log.empty()) {
        const std::size_t end = log.find('\n');
        const std::size_t length = end == std::string_view::npos ? log.size() : end + 1;
        const std::string_view line = log.substr(0, length);
        log.remove_prefix(length);
        if (line.front() == '#')
            continue;
        const std::optional<std::int64_t> gap = finder.next(line);
        if (script.empty())
            script.push_back({0, {}});
        else if (gap)
            script.push_back({script.back().offsetMs + *gap, {}});
        appendLine(script.back().bytes, line);
    }
    return script;
}

}  // namespace korvel
