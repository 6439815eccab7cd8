#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "pages/SatelliteSymbol.h"
#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"
#include "receiver/Satellite.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/ProgressBar.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

struct Options {
    std::string file;
    std::string tickLines = "1";
    bool each = false;
    bool trace = false;
    bool satellites = false;
    std::string port;
    bool ignoreVariation = false;
    std::string databaseVariation;
    std::string talkers = "gp";

    void declare(CLI::App& app) {
        app.add_option("file", file, "A receiver's log; - for standard input")->required();
        app.add_option("--tick-lines", tickLines, "Decode what waits after so many lines");
        app.add_flag("--each", each, "Print the fix after every decoding, not only the last");
        app.add_flag("--trace", trace, "Tell what became of each line so far");
        app.add_flag("--satellites", satellites, "Decode the satellites in view as well");
        app.add_option("--port", port, "The port's settings text, such as COM6:,38400,N,8,1");
        app.add_flag("--ignore-magvar", ignoreVariation, "Do not use the receiver's variation");
        app.add_option("--db-variation", databaseVariation,
                       "The database's variation, degrees, east positive");
        app.add_option("--talkers", talkers, "Whose sentences are understood")
            ->check(CLI::IsMember({"gp", "all"}));
    }
    /// Complains about wrong usage before anything is read.
    void check() const {
        if (toInt(tickLines) < 1)
            usageError("--tick-lines takes a number above 0");
        if (!databaseVariation.empty())
            toNumber(databaseVariation);
    }
};

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

/// The receiver's road from a line to the fix, with what came of it.
class Decoding {
 public:
    explicit Decoding(const Options& options)
        : trace_(options.trace), showsSky_(options.satellites && options.talkers == "all") {
        input_.understandAllTalkers(options.talkers == "all");
        input_.decoder().setPort(options.port);
        input_.decoder().ignoreReceiverVariation(options.ignoreVariation);
        const double databaseDeg =
            options.databaseVariation.empty() ? kNoAngle : toNumber(options.databaseVariation);
        input_.decoder().setVariationLookup([databaseDeg](GeoPoint) { return databaseDeg; });
        input_.store().setTracing(trace_);
        if (options.satellites)
            input_.satellitesForDisplay();  // wanted from here on: the clock stands still
    }

    void takeLine(std::string_view line) {
        input_.onSentence(line);
        collectTrace();
    }
    /// False when nothing waited.
    bool decode() {
        const auto queue = input_.queue().lock();
        const bool waited = !queue->empty();
        input_.decode(*queue);
        for (std::string& command : input_.decoder().takeCommands())
            sent_.push_back(std::move(command));
        collectTrace();
        return waited;
    }

    Json json() {
        const GpsFix fix = input_.store().copy();
        Json position;
        if (IsValid(fix.position)) {
            position = {{"lat", fix.position.lat * kRadToDeg},
                        {"lon", fix.position.lon * kRadToDeg}};
        }
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

    std::string plain() {
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

 private:
    void collectTrace() {
        if (trace_) {
            std::vector<std::string> lines = input_.store().takeTrace();
            traceLines_.insert(traceLines_.end(), std::make_move_iterator(lines.begin()),
                               std::make_move_iterator(lines.end()));
        }
    }

    VirtualClock clock_;
    std::vector<std::string> sent_;  // to the receiver, if there were one
    GpsInput input_{clock_,
                    {.answer = [this](std::string_view bytes) { sent_.emplace_back(bytes); }}};
    bool trace_;
    bool showsSky_;
    std::vector<std::string> traceLines_;
};

void printEach(const Invocation& call, Decoding& decoding) {
    if (call.json())
        Invocation::printJson(decoding.json());
    else
        std::cout << decoding.plain();
}

/// A line ends with LF; a CR before it goes with the line. `size` in bytes, 0 if unknown.
int decodeLog(const Invocation& call, const Options& options, std::istream& log,
              std::uintmax_t size) {
    const int tickLines = toInt(options.tickLines);
    Decoding decoding(options);
    const auto tick = [&] {
        if (decoding.decode() && options.each)
            printEach(call, decoding);
    };
    ProgressBar bar;
    std::uintmax_t bytes = 0;
    int lines = 0;
    for (std::string line; std::getline(log, line);) {
        decoding.takeLine(line);
        bytes += line.size() + 1;
        if (size > 0 && !options.each)
            bar.show(static_cast<double>(bytes) / static_cast<double>(size), options.file);
        if (++lines == tickLines) {
            lines = 0;
            tick();
        }
    }
    tick();
    bar.clear();
    if (log.bad())
        return call.fail("File Read Error: " + options.file);
    return options.each ? kExitDone : call.done(decoding.json(), decoding.plain());
}

}  // namespace

int runNmea(Invocation& call) {
    Options options;
    options.declare(call.options());
    call.parse();
    options.check();
    if (options.file == "-")
        return decodeLog(call, options, std::cin, 0);
    std::error_code unknown;
    std::ifstream log(options.file, std::ios::binary);
    if (!log || std::filesystem::is_directory(options.file, unknown))
        return call.fail("File Open Error: " + options.file);
    const std::uintmax_t size = std::filesystem::file_size(options.file, unknown);
    return decodeLog(call, options, log, unknown ? 0 : size);
}

}  // namespace korvel
