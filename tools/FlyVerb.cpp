#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <climits>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/ReceiverChoice.h"
#include "geo/Geodesy.h"
#include "platform/PathText.h"
#include "platform/VirtualClock.h"
#include "tools/Arguments.h"
#include "tools/FeedDevice.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr std::string_view kPort = "COM1:,9600,N,8,1";
constexpr int kUsualTicks = 120;  // of a simulated flight: a minute

struct Options {
    std::string nmea;
    std::string linesPerTick = "1";
    std::string sim;
    std::string plan;
    std::string route;
    std::string directTo;
    std::string obs;
    std::string goTo;
    std::string ticks;
    std::string steer;
    std::string trackOut;
    std::string talkers = "gp";

    void declare(CLI::App& app) {
        auto* log = app.add_option("--nmea", nmea, "Fly a receiver's log");
        app.add_option("--lines-per-tick", linesPerTick, "Lines of the log in each tick")
            ->needs(log);
        app.add_option("--talkers", talkers, "Whose sentences of the log are understood")
            ->check(CLI::IsMember({"gp", "all"}));
        auto* simulator =
            app.add_option("--sim", sim, "Fly the simulator: LAT,LON,HEADING,SPEED[,ALT]");
        simulator->excludes(log);
        auto* file = app.add_option("--plan", plan, "Flight plan to fly, .fp or .TXT");
        app.add_option("--route", route, "Route to fly")->excludes(file);
        auto* direct = app.add_option("--direct-to", directTo, "Place to fly to at once");
        app.add_option("--obs", obs, "Course of the direct-to, degrees magnetic")->needs(direct);
        app.add_option("--go-to", goTo, "Point to reach on a course: LAT,LON,COURSE,NAME");
        app.add_option("--ticks", ticks, "Half-second ticks to fly");
        app.add_option("--steer", steer, "Simulator: steer at once, or never")
            ->check(CLI::IsMember({"on", "off"}));
        app.add_option("--track-out", trackOut, "Record the track into this .trk file");
    }
};

/// The flight leaves the user's settings alone and takes none of them.
class NoRegistry final : public NoRegistryProfile {
 public:
    bool lasts() const override { return true; }  // nothing is meant to: no loss to tell of
};

Json numberOrNull(double value, double sentinel) {
    return value == sentinel ? Json() : Json(value);
}

Json feetOrNull(std::int32_t feet) { return feet == kNoAltitudeFt ? Json() : Json(feet); }

template <class Value>
Json valueOrNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json pointOrNull(GeoPoint point) {
    return IsValid(point) ? Json{{"lat", point.lat * kRadToDeg}, {"lon", point.lon * kRadToDeg}}
                          : Json();
}

Json tickJson(int tick, const CKorvelDoc& document) {
    const ActiveNavigation& navigation = document.flight().navigation();
    const ActiveNavigation::Aircraft& aircraft = navigation.present();
    const NavigationState state = navigation.state();
    const bool valid = IsValid(aircraft.position);
    return {{"tick", tick},
            {"lat", valid ? Json(aircraft.position.lat * kRadToDeg) : Json()},
            {"lon", valid ? Json(aircraft.position.lon * kRadToDeg) : Json()},
            {"groundSpeedKt", valueOrNull(aircraft.groundSpeedKt)},
            {"trackMag", numberOrNull(aircraft.trackMag, kNoAngle)},
            {"altitudeFt", valueOrNull(aircraft.altitudeFt)},
            {"activeKey", state.activeKey},
            {"activeName", state.activeName},
            {"legStart", pointOrNull(state.legStart)},
            {"desiredTrack", numberOrNull(state.desiredTrack, kNoAngle)},
            {"obsCourse", numberOrNull(state.obsCourse, kNoAngle)},
            {"bearingMag", numberOrNull(state.bearingMag, kNoAngle)},
            {"distanceNm", numberOrNull(state.distanceNm, kNoDistanceNm)},
            {"crossTrackNm", numberOrNull(state.crossTrackNm, kNoDistanceNm)},
            {"offCourseDeg", numberOrNull(state.offCourseDeg, kNoAngle)},
            {"pathTargetAltFt", feetOrNull(state.pathTargetAltFt)},
            {"pathAltFt", feetOrNull(state.pathAltFt)},
            {"status", document.cockpitData().status}};
}

std::string fixedOr(double value, double sentinel, int decimals) {
    return value == sentinel ? "---" : formatFixed(value, decimals);
}

std::string tickText(int tick, const CKorvelDoc& document) {
    constexpr int kDecimals = 5;
    const ActiveNavigation& navigation = document.flight().navigation();
    const GeoPoint at = navigation.present().position;
    const NavigationState state = navigation.state();
    return formatInt(tick) + "  " +
           (IsValid(at) ? formatFixed(at.lat * kRadToDeg, kDecimals) + "," +
                              formatFixed(at.lon * kRadToDeg, kDecimals)
                        : std::string("no position")) +
           "  track " + fixedOr(navigation.present().trackMag, kNoAngle, 0) + "  to " +
           (state.activeName.empty() ? "nothing" : state.activeName) + "  bearing " +
           fixedOr(state.bearingMag, kNoAngle, 0) + "  " +
           fixedOr(state.distanceNm, kNoDistanceNm, 1) + " NM  cross-track " +
           fixedOr(state.crossTrackNm, kNoDistanceNm, 2) + " NM\n";
}

/// One flight of the program's document on a virtual clock.
class FlownRun {
 public:
    FlownRun(const Invocation& call, const Options& options)
        : call_(call), options_(options), clock_(call.clock()) {
        profile_.setString(kOptionsSection, "Port", options.nmea.empty() ? "" : kPort, true);
        profile_.setInt(kOptionsSection, "Tracking", options.trackOut.empty() ? 0 : 1, true);
        storeReceiverChoice(profile_, {.allTalkers = options.talkers == "all"});
        document_.emplace(CKorvelDoc::Foundations{profile_, clock_, opener()});
        const auto folders = call.dataFolders();
        document_->loadDatabases(folders);
    }

    /// The message that keeps the flight on the ground; empty when it can begin.
    std::string prepare() {
        if (!options_.nmea.empty()) {
            std::error_code unknown;
            const std::filesystem::path log = pathOf(options_.nmea);
            log_.open(log, std::ios::binary);
            if (!log_ || std::filesystem::is_directory(log, unknown))
                return "File Open Error: " + options_.nmea;
        }
        Flight& flight = document_->flight();
        if (!options_.sim.empty()) {
            const std::vector<double> values = toNumbers(options_.sim, 4, 5);
            flight.startSimulator({.position = toPosition(values[0], values[1]),
                                   .headingMag = toHeading(values[2]),
                                   .speedKt = values[3],
                                   .altitudeFt = values.size() > 4 ? RoundToInt(values[4]) : 0});
            flight.lookAround({});
        }
        if (options_.steer == "on")
            flight.simulator().steerAtOnce();
        flight.simulator().setSteering(options_.steer != "off");
        if (!options_.plan.empty())
            return flight.plan().open(pathOf(options_.plan));
        return options_.route.empty() ? std::string() : flight.plan().enterRoute(options_.route);
    }

    /// The message that ended the flight; empty when it went to its end.
    std::string fly() {
        const int most = options_.ticks.empty() ? (options_.nmea.empty() ? kUsualTicks : INT_MAX)
                                                : toInt(options_.ticks);
        if (!options_.nmea.empty())
            document_->tick();  // opens the port, which has heard nothing yet
        document_->beforeNavigation = [this] { giveCommands(); };
        for (int tick = 1; tick <= most && feed(); ++tick) {
            document_->tick();
            if (call_.json())
                Invocation::printJson(tickJson(tick, *document_));
            else
                std::cout << tickText(tick, *document_);
            if (!refusal_.empty())
                return refusal_;
            clock_.advanceMs(Flight::kTickMs);
        }
        return options_.trackOut.empty()
                   ? std::string()
                   : document_->flight().track().saveTrack(pathOf(options_.trackOut));
    }

 private:
    static std::int32_t toHeading(double degrees) {
        if (degrees != Simulator::kNoHeading && !(degrees >= 0 && degrees <= 360))
            usageError("The heading is not 0 to 360 degrees");
        return RoundToInt(degrees);
    }

    SerialDeviceOpener opener() {
        if (!options_.nmea.empty())
            return feed_.opener();
        return [](std::string_view /*path*/, SystemError& error) -> std::unique_ptr<SerialDevice> {
            error = kErrorFileNotFound;
            return nullptr;
        };
    }

    /// Sends a tick's lines; false at the end of the log.
    bool feed() {
        if (options_.nmea.empty())
            return true;
        const int count = toInt(options_.linesPerTick);
        std::string bytes;
        std::string line;
        for (int i = 0; i < count && std::getline(log_, line); ++i) {
            if (line.ends_with('\r'))
                line.pop_back();
            bytes += line + "\r\n";
        }
        feed_.send(bytes);
        return !bytes.empty();
    }

    /// Within the tick, once there is a position for what needs one.
    void giveCommands() {
        ActiveNavigation& navigation = document_->flight().navigation();
        if (!IsValid(navigation.present().position))
            return;
        if (std::exchange(goToDue_, false))
            refusal_ = goTo(navigation);
        if (std::exchange(directToDue_, false)) {
            const std::string said = navigation.DirectTo(options_.directTo, options_.obs);
            if (!navigation.directLeg() || navigation.state().activeKey.empty())
                refusal_ = said;
        }
    }

    std::string goTo(ActiveNavigation& navigation) const {
        std::size_t comma = 0;
        for (int i = 0; i < 3 && comma != std::string::npos; ++i)
            comma = options_.goTo.find(',', i == 0 ? 0 : comma + 1);
        if (comma == std::string::npos)
            usageError("--go-to takes LAT,LON,COURSE,NAME");
        const std::vector<double> values = toNumbers(options_.goTo.substr(0, comma), 3, 3);
        return navigation.GoToWithCourse(toPosition(values[0], values[1]), values[2],
                                         options_.goTo.substr(comma + 1));
    }

    const Invocation& call_;
    const Options& options_;
    VirtualClock clock_;
    FeedDevice feed_;
    NoRegistry registry_;
    ProfileFile profile_{{}, registry_, ""};
    std::optional<CKorvelDoc> document_;
    std::ifstream log_;
    bool goToDue_ = !options_.goTo.empty();
    bool directToDue_ = !options_.directTo.empty();
    std::string refusal_;
};

}  // namespace

int runFly(Invocation& call) {
    Options options;
    options.declare(call.options());
    call.declareNow();
    call.parse();
    if (options.nmea.empty() == options.sim.empty())
        usageError("Either --nmea or --sim is needed");
    if (toInt(options.linesPerTick) < 1 || (!options.ticks.empty() && toInt(options.ticks) < 1))
        usageError("Ticks and lines per tick are numbers above 0");
    FlownRun run(call, options);
    std::string error = run.prepare();
    if (error.empty())
        error = run.fly();
    return error.empty() ? kExitDone : call.fail(error);
}

}  // namespace korvel
