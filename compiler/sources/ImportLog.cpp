#include "compiler/sources/ImportLog.h"

#include <numeric>
#include <utility>

namespace korvel {

ImportLog::ImportLog(std::function<void(const std::string&)> report) : report_(std::move(report)) {}

void ImportLog::add(Counts& counts, std::string_view what, std::size_t count) {
    if (count == 0)
        return;
    const auto found = counts.find(what);
    if (found == counts.end())
        counts.emplace(what, count);
    else
        found->second += count;
}

std::size_t ImportLog::count(const Counts& counts, std::string_view what) {
    const auto found = counts.find(what);
    return found == counts.end() ? 0 : found->second;
}

void ImportLog::malformed(std::string_view file, std::size_t line, std::string_view reason) {
    add(malformed_, file, 1);
    const std::size_t soFar = count(malformed_, file);
    if (!report_ || soFar > kReportedLines + 1)
        return;
    std::string text(file);
    if (soFar <= kReportedLines)
        text.append(":").append(std::to_string(line)).append(": ").append(reason);
    else
        text += ": further malformed lines are only counted";
    report_(text);
}

std::size_t ImportLog::malformedLines() const {
    return std::accumulate(
        malformed_.begin(), malformed_.end(), std::size_t{0},
        [](std::size_t sum, const auto& entry) { return sum + entry.second; });
}

std::string ImportLog::summary() const {
    std::string text;
    const auto section = [&text](std::string_view title, const Counts& counts) {
        if (counts.empty())
            return;
        text.append(title).append("\n");
        for (const auto& [what, count] : counts) {
            const std::string number = std::to_string(count);
            text.append(number.size() < 9 ? 9 - number.size() : 0, ' ');
            text.append(number).append("  ").append(what).append("\n");
        }
    };
    section("Taken:", taken_);
    section("Left out:", leftOut_);
    section("Malformed lines, skipped:", malformed_);
    return text;
}

}  // namespace korvel
