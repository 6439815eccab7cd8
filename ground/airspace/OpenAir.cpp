#include "ground/airspace/OpenAir.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "ground/airspace/OpenAirRing.h"
#include "ground/airspace/OpenAirValues.h"

namespace korvel {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Labels, pens and brushes, activation times, groups and the like: nothing that is shown.
constexpr std::array<std::string_view, 13> kPassedOver{"AG", "AI", "AA", "AW", "AX", "AP", "TW",
                                                       "TO", "TC", "SP", "SB", "AT", "AP!"};
/// Bytes of a name; what is longer is no text.
constexpr std::size_t kLongestText = 200;
/// More is no list of problems any more.
constexpr std::size_t kMostProblems = 1000;
/// A file that is not OpenAir is told by its first lines.
constexpr std::size_t kLinesLookedAt = 2000;

/// The text in UTF-8; bytes that are not are taken as Latin-1.
std::string inUtf8(std::string_view bytes) {
    const std::string_view text = trimmed(bytes, kBlanks).substr(0, kLongestText);
    if (isUtf8(text))
        return std::string(text);
    std::string result;
    for (const char c : text) {
        const unsigned code = static_cast<std::uint8_t>(c);
        if (code < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0U | code >> 6U);
            result += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return result;
}

/// Takes a line off the front, whatever ends it.
std::string_view takeLine(std::string_view& bytes) {
    const std::size_t end = bytes.find_first_of("\r\n");
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end, bytes.size()));
    if (bytes.starts_with("\r\n"))
        bytes.remove_prefix(2);
    else if (!bytes.empty())
        bytes.remove_prefix(1);
    return line;
}

/// The command of a line in capitals, and its value; empty for a remark or a blank line.
std::pair<std::string, std::string_view> commandOf(std::string_view line) {
    line = trimmed(line, kBlanks);
    if (line.empty() || line.front() == '*' || line.front() == ';' || line.front() == '#')
        return {};
    const std::size_t end = line.find_first_of(" \t");
    return {inCapitals(line.substr(0, end)), end == std::string_view::npos
                                                 ? std::string_view()
                                                 : trimmed(line.substr(end), kBlanks)};
}

/// Feet where two limits can be compared.
std::optional<int> comparable(const AltitudeLimit& limit, bool aboveGround) {
    return (limit.reference == LimitReference::Agl) == aboveGround ? limit.ft : std::nullopt;
}

bool areReversed(const Airspace& airspace) {
    return std::ranges::any_of(
        std::array{false, true},
        [&](bool aboveGround) {
            const auto floor = comparable(airspace.floor, aboveGround);
            const auto ceiling = comparable(airspace.ceiling, aboveGround);
            return floor && ceiling && *floor > *ceiling;
        });
}

class Reader {
 public:
    OpenAirFile read(std::string_view bytes) {
        if (bytes.starts_with(kByteOrderMark))
            bytes.remove_prefix(kByteOrderMark.size());
        while (!bytes.empty()) {
            ++line_;
            const auto [command, value] = commandOf(takeLine(bytes));
            if (!command.empty())
                take(command, value);
        }
        finish();
        return std::move(file_);
    }

 private:
    void take(const std::string& command, std::string_view value) {
        if (command == "AC")
            return begin(value);
        if (command == "V")
            return setVariable(value);
        if (std::ranges::find(kPassedOver, command) != kPassedOver.end())
            return;
        if (!open_)
            return report(line_, "Outside an airspace: " + command.substr(0, kLongestText));
        if (command == "AN")
            airspace_.name = inUtf8(value);
        else if (command == "AY")
            airspace_.type = inUtf8(value);
        else if (command == "AF" || command == "AR")
            airspace_.frequency = airspace_.frequency.empty() ? inUtf8(value) : airspace_.frequency;
        else if (command == "AL")
            airspace_.floor = limit(value);
        else if (command == "AH")
            airspace_.ceiling = limit(value);
        else if (command.front() != 'D')
            report(line_, "Not known: " + command.substr(0, kLongestText));
        else if (const std::string error = draw(command, value); !error.empty())
            fail(line_, error + ": " + inUtf8(value));
    }

    static AltitudeLimit limit(std::string_view value) {
        AltitudeLimit result = parseLimit(value.substr(0, kLongestText));
        result.text = inUtf8(result.text);
        return result;
    }

    void begin(std::string_view value) {
        finish();
        open_ = true;
        airspace_ = {};
        airspace_.airspaceClass = inUtf8(value.substr(0, value.find_first_of(" \t*;")));
        airspace_.line = line_;
        ring_ = {};
        error_ = {};
        // The direction is that of one airspace; the centre may stand before it and stays.
        clockwise_ = true;
    }

    void finish() {
        if (!std::exchange(open_, false))
            return;
        if (error_.text.empty() && ring_.isEmpty() && airspace_.name.empty())
            return;  // a template of pens and brushes
        if (error_.text.empty())
            error_ = {airspace_.line, ring_.finish(airspace_.rings)};
        if (error_.text.empty() && areReversed(airspace_))
            error_.text = "The floor lies above the ceiling";
        if (!error_.text.empty())
            return report(error_.line, error_.text + label());
        file_.airspaces.push_back(std::move(airspace_));
    }

    /// The airspace is left out; the first error counts.
    void fail(int line, const std::string& text) {
        if (error_.text.empty())
            error_ = {line, text};
    }
    std::string label() const {
        return airspace_.name.empty() ? std::string() : " (" + airspace_.name + ")";
    }
    void report(int line, const std::string& text) {
        if (file_.problems.size() < kMostProblems)
            file_.problems.push_back({line, text});
    }

    void setVariable(std::string_view value) {
        const std::size_t equals = value.find('=');
        const std::string name = inCapitals(trimmed(value.substr(0, equals), kBlanks));
        std::string_view rest =
            equals == std::string_view::npos ? std::string_view() : value.substr(equals + 1);
        if (name == "D") {
            clockwise_ = trimmed(rest, kBlanks).substr(0, 1) != "-";
        } else if (name == "X") {
            center_ = takePosition(rest);
            if (!center_ || !isRestEmpty(rest)) {
                center_.reset();
                const std::string text = "Not a position: " + inUtf8(value);
                if (open_)
                    fail(line_, text);
                else
                    report(line_, text);
            }
        } else if (name == "W") {
            widthNm_ = takeNumber(rest).value_or(0);
        }
    }

    std::string draw(const std::string& command, std::string_view value) {
        if (command == "DP" || command == "DY")
            return drawPoint(command == "DY", value);
        if (command != "DC" && command != "DA" && command != "DB")
            return "Not known: " + command.substr(0, kLongestText);
        if (!center_)
            return "No centre for " + command;
        if (command == "DB")
            return drawArcBetween(value);
        const auto radius = takeNumber(value);
        if (!radius)
            return "Not a radius";
        if (command == "DC")
            return isRestEmpty(value) ? ring_.addCircle(*center_, *radius) : "Not a radius";
        const auto next = [&value]() -> std::optional<double> {
            value = trimmedLeft(value, kBlanks);
            if (value.empty() || value.front() != ',')
                return std::nullopt;
            value.remove_prefix(1);
            return takeNumber(value);
        };
        const auto from = next();
        const auto to = next();
        if (!from || !to || !isRestEmpty(value))
            return "Not an arc";
        return ring_.addArc(*center_, *radius, *from, *to, clockwise_);
    }

    std::string drawPoint(bool airway, std::string_view value) {
        const auto point = takePosition(value);
        if (!point || !isRestEmpty(value))
            return "Not a position";
        if (!airway)
            ring_.addPoint(*point);
        else if (widthNm_ > 0 && widthNm_ < 1000)
            ring_.addAirway(*point, widthNm_);
        else
            return "An airway without a width";
        return {};
    }

    std::string drawArcBetween(std::string_view value) {
        const auto from = takePosition(value);
        value = trimmedLeft(value, " \t,");
        const auto to = from ? takePosition(value) : std::nullopt;
        if (!to || !isRestEmpty(value))
            return "Not an arc";
        ring_.addArc(*center_, *from, *to, clockwise_);
        return {};
    }

    OpenAirFile file_;
    int line_ = 0;
    bool open_ = false;
    Airspace airspace_;
    OpenAirRing ring_;
    OpenAirProblem error_;
    std::optional<GeoPoint> center_;
    bool clockwise_ = true;
    double widthNm_ = 0;
};

}  // namespace

OpenAirFile readOpenAir(std::string_view bytes) { return Reader().read(bytes); }

bool looksLikeOpenAir(std::string_view bytes) {
    constexpr std::array<std::string_view, 4> kBehindAClass{"AN", "AL", "AH", "SP"};
    bool begun = false;
    for (std::size_t i = 0; i < kLinesLookedAt && !bytes.empty(); ++i) {
        const auto line = commandOf(takeLine(bytes));
        const std::string_view command = line.first;
        if (begun && std::ranges::find(kBehindAClass, command) != kBehindAClass.end())
            return true;
        begun = begun || command == "AC";
    }
    return false;
}

}  // namespace korvel
