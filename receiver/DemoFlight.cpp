#include "receiver/DemoFlight.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/GeoPoint.h"
#include "geo/Geodesy.h"
#include "receiver/Satellite.h"
#include "receiver/SentenceText.h"

namespace korvel {
namespace {

constexpr double kDegree = kDegToRad;
constexpr double kCruiseKt = 110;
constexpr double kTurnRateDegPerSec = 3;
constexpr double kFieldElevationM = 132;
constexpr double kCruiseM = 1067;
constexpr double kClimbMps = 3.5;
constexpr double kReachedNm = 0.7;
constexpr double kDescentFromNm = 12;
constexpr double kVariationEast = 15.3;
constexpr int kDepartureSec = 9 * 3600;  // 09:00:00 UTC

constexpr std::array<GeoPoint, 6> kRoute = {{
    {47.4318 * kDegree, -122.3080 * kDegree},  // Seattle
    {46.9694 * kDegree, -122.9025 * kDegree},  // Olympia
    {47.4902 * kDegree, -122.7648 * kDegree},  // Bremerton
    {48.0538 * kDegree, -122.8106 * kDegree},  // Port Townsend
    {47.9063 * kDegree, -122.2816 * kDegree},  // Everett
    {47.4318 * kDegree, -122.3080 * kDegree},
}};

constexpr std::array<Satellite, 10> kSky = {{{2, true, 44, 291, 68},
                                             {5, true, 41, 62, 52},
                                             {7, false, 24, 33, 12},
                                             {13, true, 37, 112, 38},
                                             {15, true, 40, 187, 44},
                                             {18, true, 31, 318, 21},
                                             {21, false, 0, 145, 8},
                                             {24, true, 35, 244, 29},
                                             {29, true, 43, 154, 61},
                                             {30, true, 29, 79, 17}}};

/// Where the aircraft is and how it moves.
struct Flight {
    GeoPoint position = kRoute.front();
    double courseDeg = TrueCourseDeg(kRoute[0], kRoute[1]);
    double speedKt = 60;
    double altitudeM = kFieldElevationM;
    std::size_t next = 1;  // the point of the route that it flies to

    bool arrived() const { return next >= kRoute.size(); }

    void flyOneSecond() {
        const GeoPoint& goal = kRoute.at(next);
        const double turn = std::remainder(TrueCourseDeg(position, goal) - courseDeg, 360.0);
        courseDeg = PositiveMod(
            courseDeg + std::clamp(turn, -kTurnRateDegPerSec, kTurnRateDegPerSec), 360.0);
        speedKt = std::min(speedKt + 1, kCruiseKt);
        const double toGoNm = DistanceNm(position, goal);
        const bool descending = next + 1 == kRoute.size() && toGoNm < kDescentFromNm;
        const double wantedM = descending ? kFieldElevationM : kCruiseM;
        altitudeM += std::clamp(wantedM - altitudeM, -kClimbMps, kClimbMps);
        const GeoPoint from = position;
        PointAtRadialDistance(from.lat, from.lon, speedKt / 3600 / kNmPerRadian,
                              courseDeg * kDegree, position.lat, position.lon);
        if (toGoNm < kReachedNm)
            ++next;
    }
};

void append(std::string& log, std::string_view body) {
    log += sentenceOf(body);
    log += "\r\n";
}

std::string angle(double radians, std::size_t degreeDigits, char positive, char negative) {
    constexpr long kPerMinute = 10000;
    const long total = std::lround(std::abs(radians) * kRadToDeg * 60 * kPerMinute);
    return zeroPadded(total / (60 * kPerMinute), degreeDigits) +
           zeroPadded(total / kPerMinute % 60, 2) + "." + zeroPadded(total % kPerMinute, 4) + "," +
           (radians < 0 ? negative : positive);
}

void appendSatellites(std::string& log) {
    std::string used = "GPGSA,A,3";
    std::size_t slots = 12;
    for (const Satellite& satellite : kSky) {
        if (satellite.used) {
            used += "," + zeroPadded(satellite.number, 2);
            --slots;
        }
    }
    append(log, used + std::string(slots, ',') + ",1.9,1.0,1.6");
    constexpr std::size_t kPerSentence = 4;
    const std::size_t sentences = (kSky.size() + kPerSentence - 1) / kPerSentence;
    for (std::size_t k = 0; k < sentences; ++k) {
        std::string view = "GPGSV," + std::to_string(sentences) + "," + std::to_string(k + 1) +
                           "," + std::to_string(kSky.size());
        const std::size_t end = std::min(kSky.size(), (k + 1) * kPerSentence);
        for (std::size_t i = k * kPerSentence; i < end; ++i) {
            const Satellite& s = kSky.at(i);
            view += "," + zeroPadded(s.number, 2) + "," + zeroPadded(s.elevationDeg, 2) + "," +
                    zeroPadded(s.azimuthDeg, 3) + "," +
                    (s.signalDb > 0 ? zeroPadded(s.signalDb, 2) : "");
        }
        append(log, view);
    }
}

void appendBurst(std::string& log, const Flight& aircraft, int second) {
    const std::string time = zeroPadded(second / 3600 % 24, 2) + zeroPadded(second / 60 % 60, 2) +
                             zeroPadded(second % 60, 2) + ".00";
    const std::string position =
        angle(aircraft.position.lat, 2, 'N', 'S') + "," + angle(aircraft.position.lon, 3, 'E', 'W');
    append(log, "GPRMC," + time + ",A," + position + "," + formatFixed(aircraft.speedKt, 1) + "," +
                    formatFixed(aircraft.courseDeg, 1) + ",120625," +
                    formatFixed(kVariationEast, 1) + ",E");
    append(log, "GPGGA," + time + "," + position + ",1,08,1.0," +
                    formatFixed(aircraft.altitudeM, 1) + ",M,-18.4,M,,");
    appendSatellites(log);
}

}  // namespace

std::string makeDemoFlightLog() {
    std::string log;
    Flight aircraft;
    for (int second = kDepartureSec; !aircraft.arrived(); ++second) {
        appendBurst(log, aircraft, second);
        aircraft.flyOneSecond();
    }
    return log;
}

}  // namespace korvel
