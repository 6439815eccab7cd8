#include "receiver/SentenceDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

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

/// Radians from "dddmm.mmmm" and the letter of its hemisphere.
double coordinate(std::string_view digits, std::string_view side, std::string_view negativeSide) {
    const double signedValue = ParseDouble(digits) * (side == negativeSide ? -1 : 1);
    const double w = signedValue * 0.01;
    const double degrees = TruncTowardZero(w);
    return ((w - degrees) * 100 / 60 + degrees) * kDegToRad;
}

/// Truncated towards zero; what no integer can hold becomes the nearest one that can, and what is
/// no number 0.
std::int32_t truncateToInt(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

}  // namespace

void SentenceDecoder::decodeSentence(std::string_view text, std::int64_t nowMs) {
    if (surroundings_.simulatorActive()) {
        return;
    }
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
    nowMs_ = nowMs;
    FieldStore store;
    const Fields fields = split(text, store);
    for (const Kind& kind : kKinds) {
        if (fields.front() != kind.name) {
            continue;
        }
        if (fields.size() < kind.fewestFields) {
            trace(kind.tooShort);
        } else {
            (this->*kind.decode)(fields);
        }
        return;
    }
}

Variation SentenceDecoder::variation() const {
    const double receiver = store_.own().magVariation;
    return {.receiverDeg = receiver == kNoAngle ? kNoAngle : -receiver,
            .databaseDeg = surroundings_.databaseVariationDeg(),
            .ignoreReceiver = surroundings_.ignoreReceiverVariation()};
}

void SentenceDecoder::decodeRmc(Fields fields) {
    raise(SentenceFlag::kRmcOrVtg);
    if (fields[2] != "A") {
        trace(" RMC NOT LOCKED");
        return;
    }
    if (fields[3].empty() || fields[5].empty()) {
        store_.own().rmcPositionValid = 0;
    } else {
        storePosition(fields, 3, 5);
        store_.own().rmcPositionValid = 1;
    }
    if (!fields[7].empty()) {
        storeGroundSpeed(ParseDouble(fields[7]));
    }
    storeVariation(fields[10], fields[11]);
    storeTrack(fields[8]);
}

void SentenceDecoder::decodeVtg(Fields fields) {
    raise(SentenceFlag::kRmcOrVtg);
    if (!fields[5].empty()) {
        storeGroundSpeed(ParseDouble(fields[5]));
    } else if (!fields[7].empty()) {
        storeGroundSpeed(ParseDouble(fields[7]) * kNmPerKilometre);
    }
    storeTrack(fields[1]);
}

void SentenceDecoder::decodeGga(Fields fields) {
    raise(SentenceFlag::kGga);
    GpsFix& fix = store_.own();
    if (fix.rmcPositionValid == 0 && !fields[2].empty() && !fields[4].empty()) {
        storePosition(fields, 2, 4);
    }
    if (!fields[7].empty()) {
        fix.satsInUse = ParseInt(fields[7]);
    }
    if (!fields[6].empty()) {
        storeQuality(fields[6]);
    }
    if (!fields[9].empty()) {
        fix.altitudeFt = truncateToInt(ParseDouble(fields[9]) * kGgaFeetPerMetre);
        fix.altitudeTickMs = nowMs_;
    }
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
        for (std::size_t at = kGroupSize; at < fields.size(); at += kGroupSize, ++slot) {
            if (!fields[at].empty()) {
                assembly_.at(slot) = satelliteWord(fields.subspan(at, kGroupSize));
            }
        }
    }
    if (number == last) {
        store_.shared().lock()->satellites = assembly_;
        assembly_ = {};
        used_ = {};
    }
}

void SentenceDecoder::decodeGsa(Fields fields) {
    store_.own().fix3D = fields[2] == "3" ? 1 : 0;
    for (std::size_t i = 0; i < used_.size(); ++i) {
        used_.at(i) = ParseInt(fields[3 + i]);
    }
}

void SentenceDecoder::storePosition(Fields fields, std::size_t latitude, std::size_t longitude) {
    GpsFix& fix = store_.own();
    fix.position = {coordinate(fields[latitude], fields[latitude + 1], "S"),
                    coordinate(fields[longitude], fields[longitude + 1], "W")};
    fix.positionTickMs = nowMs_;
}

void SentenceDecoder::storeGroundSpeed(double knots) {
    store_.own().groundSpeedKt = knots;
    store_.own().groundSpeedTickMs = nowMs_;
}

void SentenceDecoder::storeTrack(std::string_view trueCourse) {
    if (!trueCourse.empty()) {
        store_.own().trackMag = variation().TrueToMagnetic(ParseDouble(trueCourse));
        store_.own().trackTickMs = nowMs_;
    }
}

void SentenceDecoder::storeVariation(std::string_view degrees, std::string_view side) {
    double& variation = store_.own().magVariation;
    if (side != "E" && side != "W") {
        variation = kNoAngle;
    } else if (!degrees.empty()) {
        variation = ParseDouble(degrees) * (side == "E" ? -1 : 1);
    }
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
    if (sbasDone_ || !IsValid(store_.own().position)) {
        return;
    }
    const std::string settings = surroundings_.portSettings();
    if (settings.empty()) {
        return;
    }
    sbasDone_ = true;
    const GeoPoint position = store_.own().position;
    if (position.lat < 0 || settings.find(",38400,") == std::string::npos) {
        return;
    }
    const double longitudeDeg = position.lon * kRadToDeg;
    if (longitudeDeg >= -120 && longitudeDeg <= -30) {
        surroundings_.writeToPort("$PSRF151,01*0F\r\n");
        trace(" WAAS SENT");
    }
    surroundings_.writeToPort("$PSRF103,05,00,00,01*21\r\n");
}

void SentenceDecoder::raise(std::uint32_t flag) { store_.shared().lock()->sentenceFlags |= flag; }

}  // namespace korvel
