#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace korvel {

/// What the compiler took from its sources, what it left out and why.
class ImportLog {
 public:
    using Counts = std::map<std::string, std::size_t, std::less<>>;

    /// Of one file's malformed lines so many are reported one by one, the others as a count.
    static constexpr std::size_t kReportedLines = 200;

    /// `report` gets one line of text, without its end, for each malformed input line.
    explicit ImportLog(std::function<void(const std::string&)> report = {});

    /// A line that cannot be used: "nav.dat:17: latitude missing or out of range".
    void malformed(std::string_view file, std::size_t line, std::string_view reason);
    void took(std::string_view what, std::size_t count = 1) { add(taken_, what, count); }
    void leftOut(std::string_view what, std::size_t count = 1) { add(leftOut_, what, count); }

    [[nodiscard]] std::size_t taken(std::string_view what) const { return count(taken_, what); }
    [[nodiscard]] std::size_t omitted(std::string_view what) const { return count(leftOut_, what); }
    [[nodiscard]] std::size_t malformedLines() const;
    [[nodiscard]] const Counts& takenCounts() const { return taken_; }
    [[nodiscard]] const Counts& leftOutCounts() const { return leftOut_; }
    /// By file.
    [[nodiscard]] const Counts& malformedCounts() const { return malformed_; }

    /// Several lines for people: "Taken:", "Left out:" and "Malformed lines:", each with counts.
    [[nodiscard]] std::string summary() const;

 private:
    static void add(Counts& counts, std::string_view what, std::size_t count);
    static std::size_t count(const Counts& counts, std::string_view what);

    std::function<void(const std::string&)> report_;
    Counts taken_;
    Counts leftOut_;
    Counts malformed_;
};

}  // namespace korvel
