#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>

#include "geo/GeoPoint.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/NmeaDecoding.h"
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
    NmeaDecoding::Options forDecoding() const {
        return {.allTalkers = talkers == "all",
                .satellites = satellites,
                .trace = trace,
                .port = port,
                .ignoreVariation = ignoreVariation,
                .databaseVariationDeg =
                    databaseVariation.empty() ? kNoAngle : toNumber(databaseVariation)};
    }
    /// Complains about wrong usage before anything is read.
    void check() const {
        if (toInt(tickLines) < 1)
            usageError("--tick-lines takes a number above 0");
        if (!databaseVariation.empty())
            toNumber(databaseVariation);
    }
};

void printEach(const Invocation& call, NmeaDecoding& decoding) {
    if (call.json())
        Invocation::printJson(decoding.json());
    else
        std::cout << decoding.plain();
}

/// A line ends with LF; a CR before it goes with the line. `size` in bytes, 0 if unknown.
int decodeLog(const Invocation& call, const Options& options, std::istream& log,
              std::uintmax_t size) {
    const int tickLines = toInt(options.tickLines);
    NmeaDecoding decoding(options.forDecoding());
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
    const std::filesystem::path file = pathOf(options.file);
    std::ifstream log(file, std::ios::binary);
    if (!log || std::filesystem::is_directory(file, unknown))
        return call.fail("File Open Error: " + options.file);
    const std::uintmax_t size = std::filesystem::file_size(file, unknown);
    return decodeLog(call, options, log, unknown ? 0 : size);
}

}  // namespace korvel
