#include "tools/NmeaDecoding.h"

#include <iterator>
#include <optional>
#include <utility>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "pages/SatelliteSymbol.h"
#include "receiver/Satellite.h"

namespace korvel {
namespace {

Json angle(double degrees) { return degrees == kNoAngle ? Json() : Json(degrees); }

std::string plainSatellite(const Satellite& satellite) {
    return "  satellite " + formatInt(satellite.number) + ": elevation " +
           formatInt(satellite.elevationDeg) + ", azimuth " + formatInt(satellite.azimuthDeg) +
           ", signal " + formatInt(satellite.signalDb) + " dB" +
           (satellite.used ? ", in use" : "") + "\n";
}

Json valueOrNull(std::optional<int> value) { return value ? Json(*value) : Json(); }

Json skyJson(const std::vector<SkySatellite>& sky) {
    Json list = Json::array();
    for (const SkySatellite& satellite : sky)
        list.push_back({{"system", systemName(satellite.id.system)},
                        {"id", satellite.id.number},
                        {"elevationDeg", valueOrNull(satellite.elevationDeg)},
                        {"azimuthDeg", valueOrNull(satellite.azimuthDeg)},
                        {"snrDb", valueOrNull(satellite.signalDb)},
                        {"used", satellite.used}});
    return list;
}

std::string plainSatellite(const SkySatellite& satellite) {
    const auto words = [](std::optional<int> value) {
        return value ? formatInt(*value) : std::string("-");
    };
    return "  " + std::string(systemName(satellite.id.system)) + " " +
           formatInt(satellite.id.number) + ": elevation " + words(satellite.elevationDeg) +
           ", azimuth " + words(satellite.azimuthDeg) + ", signal " + words(satellite.signalDb) +
           " dB" + (satellite.used ? ", in use" : "") + "\n";
}

std::string plainFix(const GpsFix& fix) {
    constexpr int kDecimals = 6;
    std::string text = "no position";
    if (IsValid(fix.position)) {
        text = formatFixed(fix.position.lat * kRadToDeg, kDecimals) + "," +
               formatFixed(fix.position.lon * kRadToDeg, kDecimals);
    }
    text += "  " + formatFixed(fix.groundSpeedKt, 1) + " kt  track " +
            (fix.trackMag == kNoAngle ? "---" : formatFixed(fix.trackMag, 1)) + "  " +
            formatInt(fix.altitudeFt) + " ft  ";
    if (fix.fixQuality == 0)
        text += "no fix";
    else
        text += "fix " + formatInt(fix.fixQuality) + (fix.fix3D != 0 ? " in 3D" : "");
    return text + "  " + formatInt(fix.satsInUse) + " satellites in use\n";
}

}  // namespace

NmeaDecoding::NmeaDecoding(const Options& options)
    : trace_(options.trace), showsSky_(options.satellites && options.allTalkers) {
    input_.understandAllTalkers(options.allTalkers);
    input_.decoder().setPort(options.port);
    input_.decoder().ignoreReceiverVariation(options.ignoreVariation);
    input_.decoder().setVariationLookup(
        [databaseDeg = options.databaseVariationDeg](GeoPoint) { return databaseDeg; });
    input_.store().setTracing(trace_);
    if (options.satellites)
        input_.satellitesForDisplay();  // wanted from here on: the clock stands still
}

void NmeaDecoding::takeLine(std::string_view line) {
    input_.onSentence(line);
    collectTrace();
}

bool NmeaDecoding::decode() {
    const auto queue = input_.queue().lock();
    const bool waited = !queue->empty();
    input_.decode(*queue);
    for (std::string& command : input_.decoder().takeCommands())
        sent_.push_back(std::move(command));
    collectTrace();
    return waited;
}

Json NmeaDecoding::json() {
    const GpsFix fix = input_.store().copy();
    Json position;
    if (IsValid(fix.position))
        position = {{"lat", fix.position.lat * kRadToDeg}, {"lon", fix.position.lon * kRadToDeg}};
    Json document = {{"position", position},
                     {"rmcPositionValid", fix.rmcPositionValid},
                     {"magVariation", angle(fix.magVariation)},
                     {"groundSpeedKt", fix.groundSpeedKt},
                     {"trackMag", angle(fix.trackMag)},
                     {"altitudeFt", fix.altitudeFt},
                     {"satsInUse", fix.satsInUse},
                     {"fixQuality", fix.fixQuality},
                     {"fix3D", fix.fix3D},
                     {"sentenceFlags", fix.sentenceFlags},
                     {"satellites", fix.satellites},
                     {"sent", sent_}};
    if (showsSky_)
        document["sky"] = skyJson(input_.sky());
    if (trace_)
        document["trace"] = traceLines_;
    return document;
}

std::string NmeaDecoding::plain() {
    const GpsFix fix = input_.store().copy();
    std::string text = plainFix(fix);
    for (const Satellite& satellite : unpackSatellites(fix.satellites))
        text += plainSatellite(satellite);
    if (showsSky_)
        for (const SkySatellite& satellite : input_.sky())
            text += plainSatellite(satellite);
    for (const std::string& bytes : sent_)
        text += "  sent " + bytes.substr(0, bytes.find('\r')) + "\n";
    for (const std::string& line : traceLines_)
        text += "  " + line + "\n";
    return text;
}

void NmeaDecoding::collectTrace() {
    if (trace_) {
        std::vector<std::string> lines = input_.store().takeTrace();
        traceLines_.insert(traceLines_.end(), std::make_move_iterator(lines.begin()),
                           std::make_move_iterator(lines.end()));
    }
}

}  // namespace korvel
