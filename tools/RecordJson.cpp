#include "tools/RecordJson.h"

#include <array>
#include <charconv>
#include <optional>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "pages/AirportText.h"

namespace korvel {
namespace {

constexpr int kCoordinateDecimals = 6;

/// The shortest number that means the same float: 113.9, not 113.90000153.
double shortest(float value) {
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    return ParseDouble({text.data(), static_cast<std::size_t>(written.ptr - text.data())});
}

template <class Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json(nullptr);
}

std::string letterText(char letter) { return letter == 0 ? "" : std::string(1, letter); }

Json runwayJson(const RunwayRecord& runway) {
    Json json{{"lengthFt", orNull(runway.lengthFt)},
              {"widthFt", orNull(runway.widthFt)},
              {"surface", runway.surface},
              {"info", runway.info},
              {"ends", Json::array()}};
    for (const RunwayEnd& end : runway.ends) {
        Json endJson{{"id", end.id}, {"magHeading", orNull(end.magHeadingDeg)}};
        addPosition(endJson, end.position);
        endJson["elevationFt"] = orNull(end.elevationFt);
        endJson["pattern"] = letterText(end.pattern);
        json["ends"].push_back(endJson);
    }
    return json;
}

void addAirport(Json& json, const AirportRecord& airport) {
    const bool hasVariation = airport.magVariationDeg != static_cast<float>(kNoAngle);
    const bool hasElevation = airport.elevationFt != kNoElevationFt;
    json["magVariation"] = hasVariation ? Json(shortest(airport.magVariationDeg)) : Json(nullptr);
    json["elevationFt"] = hasElevation ? Json(airport.elevationFt) : Json(nullptr);
    json["region"] = letterText(airport.region);
    json["flags"] = airport.flags;
    json["arptId"] = airport.arptId;
    json["info"] = airport.info;
    json["runways"] = Json::array();
    for (const RunwayRecord& runway : airport.runways)
        json["runways"].push_back(runwayJson(runway));
    json["comms"] = Json::array();
    for (const CommFreqRecord& comm : airport.comms)
        json["comms"].push_back({{"type", comm.type}, {"freqMhz", comm.freqMhz}});
}

}  // namespace

void addPosition(Json& json, const GeoPoint& position) {
    const bool valid = IsValid(position);
    json["lat"] = valid ? Json(position.lat * kRadToDeg) : Json(nullptr);
    json["lon"] = valid ? Json(position.lon * kRadToDeg) : Json(nullptr);
}

Json recordJson(const DatabaseRecord& record) {
    Json json{{"key", record.key},
              {"kind", record.GetKind()},
              {"ident", record.ident.view()},
              {"name", record.GetName()}};
    addPosition(json, record.position);
    json["expired"] = record.expired;
    if (const auto* navaid = dynamic_cast<const NavaidRecord*>(&record)) {
        json["usage"] = navaid->usage;
        json["frequency"] = shortest(navaid->frequency);
    } else if (const auto* fix = dynamic_cast<const FixRecord*>(&record)) {
        json["usage"] = fix->usage;
    }
    json["infoText"] = record.GetInfoText();
    if (const auto* airport = dynamic_cast<const AirportRecord*>(&record))
        addAirport(json, *airport);
    json["source"] = record.origin.fileName ? *record.origin.fileName : std::string();
    return json;
}

std::string recordLine(const DatabaseRecord& record) {
    std::string line = record.key;
    line.append("  ").append(record.GetName()).append("  ");
    line += formatFixed(record.position.lat * kRadToDeg, kCoordinateDecimals) + " " +
            formatFixed(record.position.lon * kRadToDeg, kCoordinateDecimals);
    if (const std::string info = record.GetInfoText(); !info.empty())
        line += "  " + info;
    return record.pastDate ? line + "  (out of date)" : line;
}

std::string recordDetails(const DatabaseRecord& record) {
    std::string lines;
    const auto* airport = dynamic_cast<const AirportRecord*>(&record);
    if (airport == nullptr)
        return lines;
    for (const RunwayRecord& runway : airport->runways)
        lines += "  " + runwayText(runway, 0) + "\n";
    for (const CommFreqRecord& comm : airport->comms)
        lines += "  " + commText(comm) + "\n";
    return lines;
}

}  // namespace korvel
