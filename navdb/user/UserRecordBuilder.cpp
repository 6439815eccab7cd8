#include "navdb/user/UserRecordBuilder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "base/TextNumbers.h"
#include "config/texts/DatabaseTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"

namespace korvel {
namespace {

constexpr double kMinutesPerDegree = 60.0;
constexpr double kHighestLatitude = 90.0;
constexpr double kHighestLongitude = 180.0;

std::optional<int> inFeet(std::optional<int> value, bool isMetric) {
    return value && isMetric ? std::optional(RoundToInt(*value * kUserFeetPerMetre)) : value;
}

std::string invalidField(std::string_view name) {
    return formatText(kDatabaseTexts.invalidField, {name});
}

std::string invalidValue(std::string_view name) {
    return formatText(kDatabaseTexts.invalidValue, {name});
}

/// The fields of a record, with the messages that reading them leads to.
class FieldReader {
 public:
    FieldReader(const UserFields& fields, const MessageSink& log) : fields_(fields), log_(log) {}

    [[nodiscard]] bool has(std::string_view key) const { return fields_.contains(key); }
    /// Empty when there is no such field.
    [[nodiscard]] std::string_view text(std::string_view key) const {
        const auto found = fields_.find(key);
        return found == fields_.end() ? std::string_view{} : std::string_view(found->second.value);
    }
    void error(std::string_view message) const { log_(message, Severity::Error, 0); }
    void warning(std::string_view message) const { log_(message, Severity::Warning, 0); }

    /// False, after an error, when the record lacks the field.
    [[nodiscard]] bool require(std::string_view key) const {
        if (has(key))
            return true;
        error(formatText(kDatabaseTexts.fieldNotFound, {key}));
        return false;
    }

    /// Nothing when the field is absent or, after a message, does not hold a number.
    [[nodiscard]] std::optional<int> integer(std::string_view key, std::string_view message,
                                             Severity severity) const {
        std::string_view value = text(key);
        const auto number = scanInt(value);
        if (!number && has(key))
            log_(message, severity, 0);
        return number;
    }
    [[nodiscard]] std::optional<int> notNegative(std::string_view key,
                                                 std::string_view message) const {
        const auto number = integer(key, message, Severity::Error);
        if (number && *number < 0) {
            error(message);
            return std::nullopt;
        }
        return number;
    }
    /// Not infinite, and not beyond what a float holds.
    [[nodiscard]] std::optional<float> real(std::string_view key) const {
        std::string_view value = text(key);
        const auto number = scanDouble(value);
        if (!number || !std::isfinite(static_cast<float>(*number)))
            return std::nullopt;
        return static_cast<float>(*number);
    }
    [[nodiscard]] bool isMetric(std::string_view key) const {
        return text(key) == "M" || text(key) == "m";
    }
    /// Not valid, after a warning, when one of the two is no coordinate.
    [[nodiscard]] GeoPoint position(const std::string& latKey, const std::string& lonKey) const {
        const auto lat = coordinate(latKey, kHighestLatitude);
        const auto lon = coordinate(lonKey, kHighestLongitude);
        return lat && lon ? GeoPoint{.lat = *lat * kDegToRad, .lon = *lon * kDegToRad} : GeoPoint{};
    }
    /// Feet; nothing when the field is absent or, after a warning, holds no altitude.
    [[nodiscard]] std::optional<int> elevation(const std::string& key) const {
        const std::string invalid = invalidValue("ELEV");
        const auto feet =
            inFeet(integer(key, invalid, Severity::Warning), isMetric(key + ".UNITS"));
        if (feet && !isAltitude(*feet)) {
            warning(invalid);
            return std::nullopt;
        }
        return feet;
    }

 private:
    [[nodiscard]] std::optional<double> coordinate(const std::string& key, double highest) const {
        const auto degrees = parseUserCoordinate(text(key));
        if (degrees && std::abs(*degrees) <= highest)
            return degrees;
        const auto found = fields_.find(key);
        log_(formatText(kDatabaseTexts.invalidCoordinate, {key, text(key)}), Severity::Warning,
             found != fields_.end() ? found->second.line : 0);
        return std::nullopt;
    }

    const UserFields& fields_;
    const MessageSink& log_;
};

/// False when the record must be left out because nobody knows where it is.
[[nodiscard]] bool setPlace(DatabaseRecord& record, const FieldReader& fields) {
    const std::string_view ident = fields.text("ID");
    record.key = makeRecordKey(record.GetKind(), ident);
    record.ident.assign(ident);
    record.position = fields.position("POSN.LAT", "POSN.LON");
    record.SetName(fields.text("NAME"));
    return IsValid(record.position);
}

std::uint8_t readUsage(const FieldReader& fields) {
    static constexpr std::array<std::pair<std::string_view, Usage>, 5> kWords{
        {{"LOW", kUsageLow},
         {"HIGH", kUsageHigh},
         {"BOTH", kUsageBoth},
         {"TERM", kUsageTerminal},
         {"VRP", kUsageVisual}}};
    const auto* const word = std::find_if(kWords.begin(), kWords.end(), [&](const auto& entry) {
        return entry.first == fields.text("USAGE");
    });
    if (word != kWords.end())
        return word->second;
    if (fields.has("USAGE"))
        fields.warning(invalidField("USAGE"));
    return kUsageLow;
}

RunwayEnd readEnd(const FieldReader& fields, const std::string& prefix) {
    const auto key = [&prefix](std::string_view name) { return prefix + std::string(name); };
    RunwayEnd end;
    end.id = fields.text(key("ID"));
    end.magHeadingDeg = fields.integer(key("MAG_HDG"), invalidField("MAG_HDG"), Severity::Warning);
    if (fields.has(key("POSN.LAT")) && fields.has(key("POSN.LON")))
        end.position = fields.position(key("POSN.LAT"), key("POSN.LON"));
    end.elevationFt = fields.elevation(key("ELEV"));
    if (const auto pattern = fields.text(key("PATTERN")); pattern == "L" || pattern == "l")
        end.pattern = 'L';
    else if (pattern == "R" || pattern == "r")
        end.pattern = 'R';
    else if (!pattern.empty())
        fields.warning(invalidField("PATTERN"));
    return end;
}

RunwayRecord readRunway(const FieldReader& fields, const std::string& prefix) {
    RunwayRecord runway;
    const bool isMetric = fields.isMetric(prefix + ".UNITS");
    runway.lengthFt =
        inFeet(fields.notNegative(prefix + ".LEN", invalidValue("RWY.LEN")), isMetric);
    runway.widthFt =
        inFeet(fields.notNegative(prefix + ".WIDTH", invalidValue("RWY.WIDTH")), isMetric);
    runway.surface = fields.text(prefix + ".SURFACE");
    runway.info = fields.text(prefix + ".INFO");
    runway.ends = {readEnd(fields, prefix + ".LO."), readEnd(fields, prefix + ".HI.")};
    return runway;
}

void readRunways(const FieldReader& fields, AirportRecord& airport) {
    for (int n = 1;; ++n) {
        const std::string prefix = "RWY" + std::to_string(n);
        if (!fields.has(prefix + ".LEN"))
            return;
        airport.runways.push_back(readRunway(fields, prefix));
    }
}

void readComms(const FieldReader& fields, AirportRecord& airport) {
    for (int n = 1;; ++n) {
        const std::string prefix = "COM" + std::to_string(n);
        if (!fields.has(prefix + ".TYPE") || !fields.has(prefix + ".FREQ"))
            return;
        std::string_view text = fields.text(prefix + ".FREQ");
        const auto frequency = scanDouble(text);
        if (frequency && std::isfinite(*frequency)) {
            airport.comms.push_back(
                {.type = std::string(fields.text(prefix + ".TYPE")), .freqMhz = *frequency});
        } else {
            fields.warning(invalidValue("COM.FREQ"));
        }
    }
}

}  // namespace

std::optional<double> parseUserCoordinate(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.empty())
        return 0.0;
    std::string_view rest = text;
    const auto degrees = scanInt(rest);
    if (degrees && rest.starts_with(':')) {
        rest.remove_prefix(1);
        const auto minutes = scanDouble(rest);
        if (!minutes || !rest.empty() || !(*minutes >= 0.0 && *minutes <= kMinutesPerDegree))
            return std::nullopt;
        const double part = *minutes / kMinutesPerDegree;
        return text.starts_with('-') ? *degrees - part : *degrees + part;
    }
    rest = text;
    const auto value = scanDouble(rest);
    return value && rest.empty() && std::isfinite(*value) ? value : std::nullopt;
}

std::unique_ptr<DatabaseRecord> buildUserNavaid(const UserFields& fields, const MessageSink& log) {
    const FieldReader reader(fields, log);
    if (!reader.require("ID"))
        return nullptr;
    if (reader.text("ID").size() > kMaxIdentLength) {
        reader.error(formatText(kDatabaseTexts.fieldTooLong, {"ID"}));
        return nullptr;
    }
    if (!reader.require("NAME") || !reader.require("TYPE"))
        return nullptr;
    const std::string_view type = reader.text("TYPE");
    if (type != "VOR" && type != "NDB" && type != "FIX") {
        reader.error(invalidField("TYPE"));
        return nullptr;
    }
    if (!reader.require("POSN.LAT") || !reader.require("POSN.LON"))
        return nullptr;
    const std::uint8_t usage = readUsage(reader);
    if (type == "FIX") {
        auto fix = std::make_unique<FixRecord>();
        fix->usage = usage;
        return setPlace(*fix, reader) ? std::move(fix) : nullptr;
    }
    if (!reader.require("FREQ"))
        return nullptr;
    const auto frequency = reader.real("FREQ");
    if (!frequency) {
        reader.error(invalidField("FREQ"));
        return nullptr;
    }
    std::unique_ptr<NavaidRecord> navaid;
    if (type == "VOR")
        navaid = std::make_unique<VorRecord>();
    else
        navaid = std::make_unique<NdbRecord>();
    navaid->usage = usage;
    navaid->frequency = *frequency;
    return setPlace(*navaid, reader) ? std::move(navaid) : nullptr;
}

std::unique_ptr<DatabaseRecord> buildUserAirport(const UserFields& fields, const MessageSink& log) {
    const FieldReader reader(fields, log);
    for (const std::string_view key : {"ID", "NAME", "POSN.LAT", "POSN.LON"})
        if (!reader.require(key))
            return nullptr;
    auto airport = std::make_unique<AirportRecord>();
    if (!setPlace(*airport, reader))
        return nullptr;
    airport->info = reader.text("INFO");
    if (const auto variation = reader.real("MAG_VAR"))
        airport->magVariationDeg = *variation;
    else if (reader.has("MAG_VAR"))
        reader.warning(invalidValue("MAG-VAR"));
    airport->elevationFt = reader.elevation("ELEV").value_or(kNoElevationFt);
    readRunways(reader, *airport);
    readComms(reader, *airport);
    return airport;
}

}  // namespace korvel
