#include "tools/Gdl90Simulation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "geo/Geodesy.h"
#include "nav/traffic/TrafficConflict.h"
#include "receiver/gdl90/Gdl90Frames.h"

namespace korvel {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t kOwn = 10;
constexpr std::uint8_t kOther = 20;

/// How an aircraft flies and where it begins, seen from the own start.
struct Course {
    std::uint8_t message;
    std::uint32_t address;
    std::string_view callSign;
    double bearingDeg;
    double distanceNm;
    double trackDeg;
    int speedKt;
    int altitudeFt;
    int climbFpm;
    bool airborne;
};
constexpr std::array kCourses{
    Course{kOwn, 0x3C1001, "DEKRV", 0, 0, 0, 110, 3500, 0, true},
    Course{kOther, 0x3C1002, "DEHEAD", 3, 7, 180, 120, 3600, 0, true},
    Course{kOther, 0x3C1003, "DECLMB", 60, 4, 300, 100, 1500, 512, true},
    Course{kOther, 0x3C1004, "DLH4AB", 320, 9, 140, 400, 12000, -1024, true},
    Course{kOther, 0x3C1005, "DEGND", 20, 3, 90, 0, 300, 0, false}};

void append(Bytes& message, unsigned value, int bytes) {
    constexpr unsigned kBitsPerByte = 8;
    for (int i = bytes; i-- > 0;)
        message.push_back(
            static_cast<std::uint8_t>(value >> (kBitsPerByte * static_cast<unsigned>(i)) & 0xFFU));
}

/// In steps of 180 degrees by 2^23, two's complement.
unsigned angleSteps(double radians) {
    const double steps = std::round(radians * kRadToDeg / 180.0 * (1U << 23U));
    return static_cast<unsigned>(static_cast<int>(steps)) & 0xFFFFFFU;
}

Bytes report(const Course& course, GeoPoint start, int seconds) {
    constexpr unsigned kUnknownVertical = 0x800;
    constexpr unsigned kTrueTrack = 1;
    constexpr unsigned kAirborne = 8;
    constexpr std::size_t kCallSign = 8;
    MovingAircraft aircraft{.position = start,
                            .trackTrueDeg = course.trackDeg,
                            .groundSpeedKt = static_cast<double>(course.speedKt)};
    PointAtRadialDistance(start.lat, start.lon, course.distanceNm / kNmPerRadian,
                          course.bearingDeg * kDegToRad, aircraft.position.lat,
                          aircraft.position.lon);
    const GeoPoint at = movedOn(aircraft, seconds);
    const int altitudeFt = std::max(course.altitudeFt + course.climbFpm * seconds / 60, 0);
    const unsigned vertical =
        static_cast<unsigned>(course.climbFpm / 64) & (kUnknownVertical * 2 - 1);
    Bytes message{course.message, 0};
    append(message, course.address, 3);
    append(message, angleSteps(at.lat), 3);
    append(message, angleSteps(at.lon), 3);
    const auto altitude = static_cast<unsigned>((altitudeFt + 1000) / 25);
    append(message, altitude << 4U | kTrueTrack | (course.airborne ? kAirborne : 0), 2);
    append(message, 0xA9, 1);  // accuracy and integrity of a good fix
    append(message, static_cast<unsigned>(course.speedKt) << 12U | vertical, 3);
    append(message, static_cast<unsigned>(std::lround(course.trackDeg * 256 / 360)) & 0xFFU, 1);
    append(message, 1, 1);  // a light aircraft
    std::string name(course.callSign);
    name.resize(kCallSign, ' ');
    message.insert(message.end(), name.begin(), name.end());
    append(message, 0, 1);
    return message;
}

/// A gentle turn now and then, in tenths of degrees.
Bytes attitude(int seconds) {
    const double phase = seconds * 0.15;
    const auto tenths = [](double degrees) {
        return static_cast<unsigned>(static_cast<int>(std::lround(degrees * 10))) & 0xFFFFU;
    };
    Bytes message{0x65, 1};
    append(message, tenths(8 * std::sin(phase)), 2);
    append(message, tenths(2 + std::sin(phase / 2)), 2);
    append(message, 0xFFFF, 2);
    append(message, 0xFFFF, 2);
    append(message, 0xFFFF, 2);
    return message;
}

}  // namespace

std::vector<std::string> Gdl90Simulation::second(int seconds) const {
    constexpr int kHeightSteps = 3650 / 5;
    Bytes heartbeat{0, 0x81, 0x01};
    append(heartbeat, 0, 4);
    Bytes height{11};
    append(height, kHeightSteps, 2);
    append(height, 10, 2);
    std::vector<std::string> frames{gdl90Frame(heartbeat), gdl90Frame(height)};
    for (const Course& course : kCourses)
        frames.push_back(gdl90Frame(report(course, start_, seconds)));
    frames.push_back(gdl90Frame(attitude(seconds)));
    return frames;
}

}  // namespace korvel
