#include <chrono>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <variant>

#include "geo/Geodesy.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "receiver/gdl90/Gdl90Receiver.h"
#include "tools/Arguments.h"
#include "tools/DatagramSender.h"
#include "tools/Gdl90Simulation.h"
#include "tools/Invocation.h"
#include "tools/NmeaDecoding.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

template <class Value>
Json knownOrNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json jsonOf(const Gdl90Heartbeat& m) {
    return {{"type", "heartbeat"},
            {"gpsValid", m.gpsValid},
            {"maintenance", m.maintenance},
            {"utcOk", m.utcOk},
            {"timeS", m.timeS}};
}

Json jsonOf(const Gdl90Target& m) {
    return {{"type", m.isOwn ? "ownship" : "traffic"},
            {"alert", m.alert},
            {"addressType", m.addressType},
            {"address", addressText(m.address)},
            {"lat", m.position ? Json(m.position->lat * kRadToDeg) : Json()},
            {"lon", m.position ? Json(m.position->lon * kRadToDeg) : Json()},
            {"pressureAltitudeFt", knownOrNull(m.pressureAltitudeFt)},
            {"airborne", m.airborne},
            {"extrapolated", m.extrapolated},
            {"trackDeg", knownOrNull(m.trackDeg)},
            {"headingMagneticDeg", knownOrNull(m.headingMagneticDeg)},
            {"headingTrueDeg", knownOrNull(m.headingTrueDeg)},
            {"groundSpeedKt", knownOrNull(m.groundSpeedKt)},
            {"verticalSpeedFpm", knownOrNull(m.verticalSpeedFpm)},
            {"nic", m.nic},
            {"nacp", m.nacp},
            {"emitterCategory", m.emitterCategory},
            {"callSign", m.callSign},
            {"emergency", m.emergency}};
}

Json jsonOf(const Gdl90GeometricAltitude& m) {
    return {{"type", "geometricAltitude"},
            {"altitudeFt", m.altitudeFt},
            {"verticalWarning", m.verticalWarning},
            {"vfomM", knownOrNull(m.vfomM)}};
}

Json jsonOf(const Gdl90DeviceId& m) {
    return {{"type", "id"},
            {"serial", knownOrNull(m.serial)},
            {"name", m.name},
            {"longName", m.longName},
            {"geometricAltitudeIsMsl", m.geometricAltitudeIsMsl}};
}

Json jsonOf(const Gdl90Attitude& m) {
    return {{"type", "ahrs"},
            {"rollDeg", knownOrNull(m.rollDeg)},
            {"pitchDeg", knownOrNull(m.pitchDeg)},
            {"headingDeg", knownOrNull(m.headingDeg)},
            {"headingIsMagnetic", m.headingIsMagnetic},
            {"indicatedAirspeedKt", knownOrNull(m.indicatedAirspeedKt)},
            {"trueAirspeedKt", knownOrNull(m.trueAirspeedKt)}};
}

Json jsonOf(const Gdl90Other& m) { return {{"type", "other"}, {"id", m.id}, {"bytes", m.bytes}}; }

void printLine(const Invocation& call, const Json& document) {
    if (call.json()) {
        Invocation::printJson(document);
        return;
    }
    std::string line;
    for (const auto& [name, value] : document.items()) {
        if (!value.is_null())
            line += (line.empty() ? "" : name + " ") +
                    (value.is_string() ? value.get<std::string>() : value.dump()) + "  ";
    }
    std::cout << line << '\n';
}

/// A line a message, and how many there were.
int printMessages(const Invocation& call, std::string_view bytes) {
    Gdl90Frames frames;
    std::int64_t messages = 0;
    std::int64_t refused = 0;
    frames.take(bytes, [&](Gdl90Bytes frame) {
        const auto message = decodeGdl90(frame);
        if (!message) {
            ++refused;
            return;
        }
        ++messages;
        printLine(call, std::visit([](const auto& m) { return jsonOf(m); }, *message));
    });
    frames.finish();
    printLine(
        call,
        {{"type", "summary"}, {"messages", messages}, {"badFrames", frames.badFrames() + refused}});
    return kExitDone;
}

std::optional<Geoid> geoidOf(const Invocation& call) {
    for (const std::filesystem::path& folder : call.dataFolders())
        if (const auto bytes = readWholeFile(folder / Geoid::kFileName))
            return Geoid::fromBytes(*bytes);
    return std::nullopt;
}

int printFix(const Invocation& call, std::string_view bytes) {
    NmeaDecoding decoding(NmeaDecoding::Options{});
    Gdl90Receiver receiver;
    receiver.setGeoid(geoidOf(call));
    receiver.take(bytes, 0, decoding);
    decoding.decode();
    return call.done(decoding.json(), decoding.plain());
}

/// At the pace at which the heartbeats came, one a second.
int sendFile(const Invocation& call, std::string_view bytes, DatagramSender& to) {
    Gdl90Frames frames;
    bool isFirst = true;
    frames.take(bytes, [&](Gdl90Bytes frame) {
        constexpr std::uint8_t kHeartbeat = 0;
        if (frame[0] == kHeartbeat && !std::exchange(isFirst, false))
            std::this_thread::sleep_for(std::chrono::seconds(1));
        to.send(gdl90Frame(frame));
    });
    return call.done({{"sent", to.sent()}}, std::to_string(to.sent()) + " datagrams\n");
}

int sendSimulation(const Invocation& call, GeoPoint start, int seconds, DatagramSender& to) {
    const Gdl90Simulation simulation(start);
    for (int second = 0; second < seconds; ++second) {
        if (second > 0)
            std::this_thread::sleep_for(std::chrono::seconds(1));
        for (const std::string& frame : simulation.second(second))
            to.send(frame);
    }
    return call.done({{"sent", to.sent()}}, std::to_string(to.sent()) + " datagrams\n");
}

/// What is to be sent: a file's frames, or aircraft around "LAT,LON".
int sendGdl90(const Invocation& call, const std::string& what, const std::string& to,
              bool simulated, int seconds) {
    DatagramSender sender(to);
    if (!sender.error().empty())
        usageError(sender.error());
    if (simulated)
        return sendSimulation(call, toPosition(what), seconds, sender);
    const auto bytes = readWholeFile(pathOf(what));
    return bytes ? sendFile(call, *bytes, sender) : call.fail("File Open Error: " + what);
}

}  // namespace

int runGdl90(Invocation& call) {
    std::string file;
    std::string to;
    bool fix = false;
    bool played = false;
    bool simulated = false;
    int seconds = 300;
    call.options()
        .add_option("file", file, "Raw frames, as they came; with --simulate LAT,LON")
        ->required();
    call.options().add_option("to", to, "With --play and --simulate: udp://HOST:PORT");
    call.options().add_flag("--fix", fix, "What the navigator makes of it, as nmea prints it");
    auto* play = call.options().add_flag("--play", played,
                                         "Send the file's frames, one second "
                                         "of them a second");
    call.options()
        .add_flag("--simulate", simulated, "Send a flight from LAT,LON north among others")
        ->excludes(play);
    call.options()
        .add_option("--seconds", seconds, "How long to simulate")
        ->check(CLI::Range(1, 86400));
    call.parse();
    if (played || simulated)
        return sendGdl90(call, file, to, simulated, seconds);
    const auto bytes = readWholeFile(pathOf(file));
    if (!bytes)
        return call.fail("File Open Error: " + file);
    return fix ? printFix(call, *bytes) : printMessages(call, *bytes);
}

}  // namespace korvel
