#include "ground/obstacles/ObstacleFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <utility>

#include "base/Ascii.h"
#include "base/CsvFields.h"
#include "base/TextLines.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// Beyond these a height is a slip of the pen: nothing that people built is taller than a
/// kilometre, and no ground is higher than Everest.
constexpr int kTallestFt = 4000;
constexpr int kHighestTopFt = 33000;
constexpr int kLowestTopFt = -1500;
/// The headers that say what the columns are stand in the file's beginning.
constexpr std::size_t kHeaderBytes = 1000;
constexpr std::size_t kMostProblems = 1000;
constexpr std::string_view kFixedHeader = "OAS#";

std::optional<double> wholeNumber(std::string_view text) {
    text = trimmed(text);
    const auto value = scanDouble(text);
    return value && text.empty() && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> feet(std::string_view text) {
    const auto value = wholeNumber(text);
    if (!value || std::abs(*value) > kHighestTopFt)
        return std::nullopt;
    return RoundToInt(*value);
}

/// The texts of a row, whatever the kind of file.
struct Row {
    std::optional<double> latDeg, lonDeg;
    std::string_view type, city, agl, amsl, lighting, verified;
};

/// Why the row is no obstacle, or nothing: then it was added.
std::string take(const Row& row, std::vector<Obstacle>& obstacles) {
    if (!row.latDeg || std::abs(*row.latDeg) > 90 || !row.lonDeg || std::abs(*row.lonDeg) > 180)
        return "no latitude or longitude";
    const auto agl = feet(row.agl);
    const auto amsl = feet(row.amsl);
    if (!agl || *agl <= 0 || *agl > kTallestFt)
        return "no height above the ground";
    if (!trimmed(row.amsl).empty() && (!amsl || *amsl < kLowestTopFt))
        return "no height above sea";
    Obstacle obstacle;
    obstacle.position = {.lat = *row.latDeg * kDegToRad, .lon = *row.lonDeg * kDegToRad};
    obstacle.aglFt = *agl;
    obstacle.topFt = amsl.value_or(*agl);
    if (amsl)
        obstacle.elevationFt = *amsl - *agl;
    obstacle.name = trimmed(row.type);
    if (const auto city = trimmed(row.city); !city.empty())
        obstacle.name.append(obstacle.name.empty() ? "" : ", ").append(city);
    const auto lighting = trimmed(row.lighting);
    obstacle.isLit = !lighting.empty() && lighting != "N" && lighting != "U";
    obstacle.isVerified = trimmed(row.verified) != "U";
    obstacles.push_back(std::move(obstacle));
    return {};
}

/// Degrees, minutes and seconds in their columns, with a hemisphere's letter at the end: the first
/// of the two is positive.
std::optional<double> degrees(std::string_view text, std::string_view hemispheres) {
    if (text.empty() || hemispheres.find(text.back()) == std::string_view::npos)
        return std::nullopt;
    const bool isPositive = text.back() == hemispheres.front();
    text.remove_suffix(1);
    const auto whole = scanDouble(text);
    const auto minutes = scanDouble(text);
    const auto seconds = scanDouble(text);
    if (!whole || !minutes || !seconds || !trimmed(text).empty() || !(*minutes < 60.0) ||
        !(*seconds <= 60.0) || *whole < 0 || *minutes < 0 || *seconds < 0)
        return std::nullopt;
    const double value = *whole + *minutes / 60.0 + *seconds / 3600.0;
    return isPositive ? value : -value;
}

/// Columns as the FAA prints them.
Row fixedRow(std::string_view line) {
    const auto column = [line](std::size_t from, std::size_t length) {
        return from < line.size() ? line.substr(from, length) : std::string_view{};
    };
    return {.latDeg = degrees(column(35, 12), "NS"),
            .lonDeg = degrees(column(48, 13), "EW"),
            .type = column(62, 18),
            .city = column(18, 16),
            .agl = column(83, 5),
            .amsl = column(89, 5),
            .lighting = column(95, 1),
            .verified = column(10, 1)};
}

bool isFixedRow(std::string_view line) {
    return line.size() > 40 && line[2] == '-' && line[0] >= '0' && line[0] <= '9';
}

/// Where the columns of a table stand; one past the last where there is none of that name.
class Columns {
 public:
    explicit Columns(const CsvFields& header)
        : lat_(find(header, {"LATDEC", "LATITUDE", "LAT"})),
          lon_(find(header, {"LONDEC", "LONGITUDE", "LON"})),
          type_(find(header, {"TYPE", "NAME"})),
          city_(find(header, {"CITY"})),
          agl_(find(header, {"AGL", "HEIGHT"})),
          amsl_(find(header, {"AMSL", "MSL"})),
          lighting_(find(header, {"LIGHTING"})),
          verified_(find(header, {"VERIFIED STATUS"})) {}

    [[nodiscard]] bool isComplete() const {
        return lat_ != kNone && lon_ != kNone && agl_ != kNone;
    }
    [[nodiscard]] Row row(const CsvFields& fields) const {
        return {.latDeg = wholeNumber(fields[lat_]),
                .lonDeg = wholeNumber(fields[lon_]),
                .type = fields[type_],
                .city = fields[city_],
                .agl = fields[agl_],
                .amsl = fields[amsl_],
                .lighting = fields[lighting_],
                .verified = fields[verified_]};
    }

 private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    static std::size_t find(const CsvFields& header,
                            std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names)
            for (std::size_t i = 0; i < header.size(); ++i)
                if (equalsIgnoringCase(trimmed(header[i]), name))
                    return i;
        return kNone;
    }

    std::size_t lat_, lon_, type_, city_, agl_, amsl_, lighting_, verified_;
};

bool isFixed(std::string_view bytes) {
    return bytes.substr(0, kHeaderBytes).find(kFixedHeader) != std::string_view::npos;
}

void tell(ObstacleFile& file, std::size_t line, std::string problem) {
    if (!problem.empty() && file.problems.size() < kMostProblems)
        file.problems.push_back({line, std::move(problem)});
}

void readFixed(TextLines lines, ObstacleFile& file) {
    for (std::string_view line; lines.next(line);)
        if (isFixedRow(line))
            tell(file, lines.number(), take(fixedRow(line), file.obstacles));
}

void readTable(TextLines lines, ObstacleFile& file) {
    std::string_view line;
    CsvFields fields;
    if (!lines.next(line))
        return;
    fields.take(line);
    const Columns columns(fields);
    if (!columns.isComplete())
        return;
    while (lines.next(line)) {
        fields.close();  // no field of these tables spans lines
        fields.take(line);
        if (fields.size() > 1)
            tell(file, lines.number(), take(columns.row(fields), file.obstacles));
    }
}

}  // namespace

bool looksLikeObstacles(std::string_view bytes) {
    if (isFixed(bytes))
        return true;
    TextLines lines(bytes.substr(0, kHeaderBytes));
    std::string_view header;
    CsvFields fields;
    if (!lines.next(header))
        return false;
    fields.take(header);
    return Columns(fields).isComplete();
}

ObstacleFile readObstacles(std::string_view bytes) {
    ObstacleFile file;
    if (isFixed(bytes))
        readFixed(TextLines(bytes), file);
    else
        readTable(TextLines(bytes), file);
    return file;
}

}  // namespace korvel
