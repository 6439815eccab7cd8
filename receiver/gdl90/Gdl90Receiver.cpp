#include "receiver/gdl90/Gdl90Receiver.h"

#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "receiver/SentenceText.h"

namespace korvel {
namespace {

/// Both come once a second.
constexpr int kReportsWithoutHeight = 5;

/// "4807.038000,N", with so many digits of degrees.
std::string coordinate(double radians, std::size_t degreeDigits, char positive, char negative) {
    constexpr int kDecimals = 6;
    constexpr double kMinutes = 60;
    // Rounded as a whole, so that there are never 60 minutes.
    constexpr double kSteps = kMinutes * 1e6;
    const double steps = std::round(std::abs(radians) * kRadToDeg * kSteps);
    const double degrees = std::floor(steps / kSteps);
    const double minutes = (steps - degrees * kSteps) / 1e6;
    return zeroPadded(static_cast<long long>(degrees), degreeDigits) +
           zeroPadded(formatFixed(minutes, kDecimals), 2 + 1 + kDecimals) + "," +
           (radians < 0 ? negative : positive);
}

}  // namespace

void Gdl90Receiver::take(std::string_view bytes, std::int64_t arrivedMs,
                         SentenceListener& listener) {
    heard_.frames.take(
        bytes,
        [&](Gdl90Bytes frame) {
            if (const auto message = decodeGdl90(frame))
                takeMessage(*message, arrivedMs, listener);
        });
}

void Gdl90Receiver::takeMessage(const Gdl90Message& message, std::int64_t arrivedMs,
                                SentenceListener& listener) {
    if (const auto* heartbeat = std::get_if<Gdl90Heartbeat>(&message)) {
        heard_.gpsValid = heartbeat->gpsValid;
    } else if (const auto* height = std::get_if<Gdl90GeometricAltitude>(&message)) {
        heard_.heightFt = height->altitudeFt;
        heard_.reportsSinceHeight = 0;
    } else if (const auto* device = std::get_if<Gdl90DeviceId>(&message)) {
        heard_.heightIsMsl = device->geometricAltitudeIsMsl;
    } else if (const auto* attitude = std::get_if<Gdl90Attitude>(&message)) {
        *attitude_.lock() = Attitude{*attitude, arrivedMs};
    } else if (const auto* target = std::get_if<Gdl90Target>(&message)) {
        traffic_.lock()->take(*target, arrivedMs);
        if (target->isOwn)
            report(*target, arrivedMs, listener);
    }
}

void Gdl90Receiver::forget() {
    heard_ = {};
    attitude_.lock()->reset();
    *traffic_.lock() = {};
}

void Gdl90Receiver::report(const Gdl90Target& own, std::int64_t arrivedMs,
                           SentenceListener& listener) {
    if (++heard_.reportsSinceHeight > kReportsWithoutHeight)
        heard_.heightFt.reset();
    if (!heard_.gpsValid || !own.position) {
        listener.onLine(sentenceOf("GPRMC,,V,,,,,,,,,"), arrivedMs);
        listener.onLine(sentenceOf("GPGGA,,,,,,0,,,,M,,M,,"), arrivedMs);
        listener.onLine(sentenceOf("GPGSA,A,1,,,,,,,,,,,,,,,"), arrivedMs);
        return;
    }
    const std::string place = coordinate(own.position->lat, 2, 'N', 'S') + "," +
                              coordinate(own.position->lon, 3, 'E', 'W');
    const std::string speed = own.groundSpeedKt ? formatInt(*own.groundSpeedKt) : std::string();
    const std::string track = own.trackDeg ? formatFixed(*own.trackDeg, 2) : std::string();
    listener.onLine(sentenceOf("GPRMC,,A," + place + "," + speed + "," + track + ",,,"), arrivedMs);
    constexpr int kDecimals = 4;
    const auto metres = heightM(*own.position);
    const std::string altitude = metres ? formatFixed(*metres, kDecimals) : std::string();
    listener.onLine(sentenceOf("GPGGA,," + place + ",1,,," + altitude + ",M,,M,,"), arrivedMs);
    listener.onLine(sentenceOf(metres ? "GPGSA,A,3,,,,,,,,,,,,,,," : "GPGSA,A,2,,,,,,,,,,,,,,,"),
                    arrivedMs);
}

std::optional<double> Gdl90Receiver::heightM(GeoPoint place) const {
    if (!heard_.heightFt || (!heard_.heightIsMsl && !geoid_))
        return std::nullopt;
    const double metres = *heard_.heightFt * kMetresPerFoot;
    return heard_.heightIsMsl ? metres : metres - geoid_->heightM(place);
}

}  // namespace korvel
