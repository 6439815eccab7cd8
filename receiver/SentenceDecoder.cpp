#include "receiver/SentenceDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "receiver/PortSettings.h"
#include "receiver/ReceiverTime.h"

namespace korvel {
namespace {

constexpr std::size_t kMostFields = 25;
constexpr std::size_t kGroupSize = 4;  ///< fields of one satellite in GSV

using FieldStore = std::array<std::string_view, kMostFields>;

/// Cuts at the commas. Fields beyond the last one that there is room for are dropped. They are so
/// short that looking at each character is faster than a search for each comma.
std::span<const std::string_view> split(std::string_view text, FieldStore& store) {
    std::size_t count = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size() && count < kMostFields; ++i) {
        if (i == text.size() || text[i] == ',') {
            store.at(count++) = text.substr(start, i - start);
            start = i + 1;
        }
    }
    std::string_view& last = store.at(count - 1);
    last = last.substr(0, last.find('*'));
    return {store.data(), count};
}

/// What a field says; nothing when it is empty, endless or "nan". A word counts as 0.
std::optional<double> decimal(std::string_view field) {
    const double value = ParseDouble(field);
    return field.empty() || !std::isfinite(value) ? std::nullopt : std::optional(value);
}

/// Radians from "dddmm.mmmm" and the letter of its hemisphere.
std::optional<double> coordinate(std::string_view digits, std::string_view side,
                                 std::string_view negativeSide) {
    const auto value = decimal(digits);
    if (!value)
        return std::nullopt;
    const double w = *value * (side == negativeSide ? -1 : 1) * 0.01;
    const double degrees = TruncTowardZero(w);
    return ((w - degrees) * 100 / 60 + degrees) * kDegToRad;
}

}  // namespace

void SentenceDecoder::decodeSentence(std::string_view text, std::int64_t arrivedMs) {
    struct Kind {
        std::string_view name;
        std::size_t fewestFields;
        void (SentenceDecoder::*decode)(Fields);
        std::string_view tooShort;
    };
    static constexpr std::array<Kind, 5> kKinds = {
        {{"$GPRMC", 12, &SentenceDecoder::decodeRmc, " RMC FAILED"},
         {"$GPVTG", 9, &SentenceDecoder::decodeVtg, " VTG FAILED"},
         {"$GPGGA", 14, &SentenceDecoder::decodeGga, " GGA FAILED"},
         {"$GPGSV", 0, &SentenceDecoder::decodeGsv, " GSV FAILED"},
         {"$GPGSA", 18, &SentenceDecoder::decodeGsa, " GSA FAILED"}}};
    text_ = text;
    arrivedMs_ = arrivedMs;
    FieldStore store;
    const Fields fields = split(text, store);
    for (const Kind& kind : kKinds) {
        if (fields.front() != kind.name)
            continue;
        if (fields.size() < kind.fewestFields)
            trace(kind.tooShort);
        else
            (this->*kind.decode)(fields);
        return;
    }
}

Variation SentenceDecoder::variation(GeoPoint here) const {
    const double receiver = store_.own().magVariation;
    return {.receiverDeg = receiver == kNoAngle ? kNoAngle : -receiver,
            .databaseDeg = variationAt_ ? variationAt_(here) : kNoAngle,
            .ignoreReceiver = ignoreReceiverVariation_};
}

void SentenceDecoder::decodeRmc(Fields fields) {
    raise(SentenceFlag::kRmcOrVtg);
    if (fields[2] != "A") {
        trace(" RMC NOT LOCKED");
        return;
    }
    store_.own().rmcPositionValid = storePosition(fields, 3, 5) ? 1 : 0;
    if (const auto knots = decimal(fields[7]))
        storeGroundSpeed(*knots);
    storeVariation(fields[10], fields[11]);
    storeTrack(fields[8]);
    storeTime(fields[1], fields[9]);
}

void SentenceDecoder::decodeVtg(Fields fields) {
    raise(SentenceFlag::kRmcOrVtg);
    if (const auto knots = decimal(fields[5]))
        storeGroundSpeed(*knots);
    else if (const auto kilometres = decimal(fields[7]))
        storeGroundSpeed(*kilometres * kNmPerKilometre);
    storeTrack(fields[1]);
}

void SentenceDecoder::decodeGga(Fields fields) {
    raise(SentenceFlag::kGga);
    GpsFix& fix = store_.own();
    if (fix.rmcPositionValid == 0)
        storePosition(fields, 2, 4);
    if (!fields[7].empty())
        fix.satsInUse = ParseInt(fields[7]);
    if (!fields[6].empty())
        storeQuality(fields[6]);
    storeAltitude(fields[9]);
    startSbas();
}

void SentenceDecoder::decodeGsv(Fields fields) {
    if (fields.size() % kGroupSize != 0 || fields.size() < 2 * kGroupSize ||
        fields.size() > 5 * kGroupSize) {
        trace(" GSV FAILED");
        return;
    }
    constexpr int kMessages = static_cast<int>(kSatelliteSlots / kGroupSize);
    const int last = ParseInt(fields[1]);
    const int number = ParseInt(fields[2]);
    // A cycle may be longer than the table: what has no slot is left out, but ends the cycle.
    if (number >= 1 && number <= kMessages) {
        std::size_t slot = kGroupSize * static_cast<std::size_t>(number - 1);
        for (std::size_t at = kGroupSize; at < fields.size(); at += kGroupSize, ++slot)
            if (!fields[at].empty())
                assembly_.at(slot) = satelliteWord(fields.subspan(at, kGroupSize));
    }
    if (number == last) {
        store_.shared().lock()->satellites = assembly_;
        assembly_ = {};
        used_ = {};
    }
}

void SentenceDecoder::decodeGsa(Fields fields) {
    store_.own().fix3D = fields[2] == "3" ? 1 : 0;
    store_.own().fixKindTickMs = arrivedMs_;
    for (std::size_t i = 0; i < used_.size(); ++i)
        used_.at(i) = ParseInt(fields[3 + i]);
}

bool SentenceDecoder::storePosition(Fields fields, std::size_t latitude, std::size_t longitude) {
    const auto lat = coordinate(fields[latitude], fields[latitude + 1], "S");
    const auto lon = coordinate(fields[longitude], fields[longitude + 1], "W");
    if (!lat || !lon)
        return false;
    store_.own().position = {*lat, *lon};
    store_.own().positionTickMs = arrivedMs_;
    return true;
}

void SentenceDecoder::storeGroundSpeed(double knots) {
    store_.own().groundSpeedKt = knots;
    store_.own().groundSpeedTickMs = arrivedMs_;
}

void SentenceDecoder::storeTrack(std::string_view trueCourse) {
    if (const auto course = decimal(trueCourse)) {
        store_.own().trackMag = variation(store_.own().position).TrueToMagnetic(*course);
        store_.own().trackTickMs = arrivedMs_;
    }
}

/// Truncated towards zero. Where no aircraft flies a receiver is out of its mind.
void SentenceDecoder::storeAltitude(std::string_view metres) {
    constexpr double kMostFeet = 1e9;  // whatever a whole number of feet can hold
    const double feet = decimal(metres).value_or(HUGE_VAL) * kGgaFeetPerMetre;
    if (std::abs(feet) < kMostFeet && isAltitude(static_cast<int>(feet))) {
        store_.own().altitudeFt = static_cast<std::int32_t>(feet);
        store_.own().altitudeTickMs = arrivedMs_;
    }
}

void SentenceDecoder::storeTime(std::string_view time, std::string_view date) {
    if (const auto seconds = receiverUnixSeconds(time, date)) {
        store_.own().utcSeconds = *seconds;
        store_.own().utcTickMs = arrivedMs_;
    }
}

void SentenceDecoder::storeVariation(std::string_view degrees, std::string_view side) {
    double& variation = store_.own().magVariation;
    if (side != "E" && side != "W")
        variation = kNoAngle;
    else if (const auto value = decimal(degrees))
        variation = *value * (side == "E" ? -1 : 1);
}

void SentenceDecoder::storeQuality(std::string_view quality) {
    const bool positionKnown = IsValid(store_.own().position);
    const auto shared = store_.shared().lock();
    shared->fixQuality = ParseInt(quality);
    const bool moving = (shared->sentenceFlags & SentenceFlag::kRmcOrVtg) != 0;
    if (!moving || !positionKnown) {
        // GGA alone is not enough to navigate by.
        shared->fixQuality = 0;
    }
}

std::uint32_t SentenceDecoder::satelliteWord(Fields group) const {
    const int number = ParseInt(group[0]);
    const int elevation = ParseInt(group[1]);
    const auto bits = [](int value, std::uint32_t mask) {
        return static_cast<std::uint32_t>(value) & mask;
    };
    constexpr int kBelowHorizon = 91;
    std::uint32_t word = bits(elevation < 0 ? kBelowHorizon : elevation, 0x7F);
    word = word << 9U | bits(ParseInt(group[2]), 0x1FF);
    word = word << 8U | bits(ParseInt(group[3]), 0xFF);
    word = word << 8U | bits(number, 0x7F);
    const bool inUse = std::find(used_.begin(), used_.end(), number) != used_.end();
    return inUse ? word | 0x80U : word;
}

void SentenceDecoder::startSbas() {
    if (sbasDone_ || !IsValid(store_.own().position))
        return;
    const auto port = PortSettings::parse(portText_);
    if (!port)
        return;
    sbasDone_ = true;
    const GeoPoint position = store_.own().position;
    if (position.lat < 0 || port->speed != "38400" || port->rest.empty())
        return;
    const double longitudeDeg = position.lon * kRadToDeg;
    if (longitudeDeg >= -120 && longitudeDeg <= -30) {
        commands_.emplace_back("$PSRF151,01*0F\r\n");
        trace(" WAAS SENT");
    }
    commands_.emplace_back("$PSRF103,05,00,00,01*21\r\n");
}

void SentenceDecoder::raise(std::uint32_t flag) { store_.shared().lock()->sentenceFlags |= flag; }

}  // namespace korvel
