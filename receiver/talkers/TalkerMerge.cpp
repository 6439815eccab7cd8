#include "receiver/talkers/TalkerMerge.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "base/TextNumbers.h"
#include "receiver/SentenceText.h"

namespace korvel {
namespace {

constexpr std::size_t kNameLength = 6;  ///< "$GPRMC"
constexpr std::size_t kTalkerAt = 1;
constexpr std::size_t kKindAt = 3;

constexpr std::size_t kRmcFields = 12;
constexpr std::size_t kVtgFields = 9;
constexpr std::size_t kGgaFields = 14;
constexpr std::size_t kGnsFields = 13;

// Without enough fields the decoder refuses a sentence: it carries nothing then.
bool rmcHasFix(std::span<const std::string_view> fields) {
    return fields.size() >= kRmcFields && fields[2] == "A" && !fields[3].empty() &&
           !fields[5].empty();
}
bool ggaHasFix(std::span<const std::string_view> fields) {
    return fields.size() >= kGgaFields && ParseInt(fields[6]) > 0;
}
bool vtgHasSpeed(std::span<const std::string_view> fields) {
    return fields.size() >= kVtgFields && (!fields[5].empty() || !fields[7].empty());
}

/// GNS has a letter for each system. GGA's quality of the best one, '0' when none has a fix.
char qualityOf(std::string_view modes) {
    struct Mode {
        char letter;
        char quality;
    };
    constexpr std::array<Mode, 8> kBestFirst = {{{'R', '4'},
                                                 {'F', '5'},
                                                 {'P', '3'},
                                                 {'D', '2'},
                                                 {'A', '1'},
                                                 {'E', '6'},
                                                 {'M', '7'},
                                                 {'S', '8'}}};
    for (const Mode& mode : kBestFirst)
        if (modes.find(mode.letter) != std::string_view::npos)
            return mode.quality;
    return '0';
}

/// "hhmmss.sss" as a number, however many decimals it has; nothing for what is none.
std::optional<FixTime> timeOf(std::string_view field) {
    constexpr int kDecimals = 6;
    constexpr std::size_t kMostDigits = 12;
    constexpr FixTime kTen = 10;
    FixTime value = 0;
    int decimals = -1;  // none yet
    if (field.empty() || field.size() > kMostDigits)
        return std::nullopt;
    for (const char c : field) {
        if (c == '.' && decimals < 0) {
            decimals = 0;
        } else if (c >= '0' && c <= '9') {
            if (decimals < kDecimals)
                value = value * kTen + (c - '0');
            if (decimals >= 0 && decimals < kDecimals)
                ++decimals;
        } else {
            return std::nullopt;
        }
    }
    for (int i = std::max(decimals, 0); i < kDecimals; ++i)
        value *= kTen;
    return value;
}

void appendField(std::string& line, std::string_view field) {
    line += ',';
    line += field;
}

/// At least `digits` of them; nothing for an unknown value.
void appendNumber(std::string& line, int value, int digits) {
    constexpr int kTen = 10;
    line += ',';
    if (value == SatelliteSignal::kUnknown)
        return;
    if (value < 0)
        line += '-';
    auto rest = static_cast<std::uint32_t>(std::abs(value));
    std::array<char, kTen> reversed{};
    int count = 0;
    for (; rest != 0 || count < digits; rest /= kTen)
        reversed.at(static_cast<std::size_t>(count++)) = static_cast<char>('0' + rest % kTen);
    while (count > 0)
        line += reversed.at(static_cast<std::size_t>(--count));
}

}  // namespace

std::span<const std::string_view> TalkerMerge::take(std::string_view text) {
    out_.clear();
    made_.clear();
    if (const auto sentence = read(text))
        take(*sentence);
    else
        handOn(text);
    return out_;
}

std::optional<TalkerMerge::Kind> TalkerMerge::kindOf(std::string_view letters) {
    constexpr std::array<std::string_view, 6> kKinds = {"RMC", "GGA", "VTG", "GNS", "GSA", "GSV"};
    const auto* const found = std::ranges::find(kKinds, letters);
    return found == kKinds.end() ? std::nullopt
                                 : std::optional(static_cast<Kind>(found - kKinds.begin()));
}

std::optional<TalkerMerge::Sentence> TalkerMerge::read(std::string_view text) {
    const std::string_view line = withoutCr(text);
    if (line.size() <= kNameLength || line.front() != '$' || line[kNameLength] != ',')
        return std::nullopt;
    const auto talker = talkerOf(line.substr(kTalkerAt, kKindAt - kTalkerAt));
    const auto kind = kindOf(line.substr(kKindAt, kNameLength - kKindAt));
    if (!talker || !kind || (*talker == Talker::PQ && *kind != Kind::Gsa && *kind != Kind::Gsv))
        return std::nullopt;
    unsigned char sum = 0;
    if (!hasSentenceCharacters(line) || checkSum(line, sum) != ChecksumState::Right)
        return std::nullopt;
    return Sentence{.text = text,
                    .line = line,
                    .talker = *talker,
                    .kind = *kind,
                    .sum = sum,
                    .fields = split(line.substr(0, line.rfind('*')))};
}

TalkerMerge::Fields TalkerMerge::split(std::string_view body) {
    std::size_t count = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= body.size() && count < kMostFields; ++i) {
        if (i == body.size() || body[i] == ',') {
            fields_.at(count++) = body.substr(start, i - start);
            start = i + 1;
        }
    }
    return std::span<const std::string_view>(fields_).first(count);
}

void TalkerMerge::take(const Sentence& sentence) {
    if (sentence.kind != Kind::Gsa)
        used_.end();
    switch (sentence.kind) {
        case Kind::Rmc:
            noteTime(sentence.fields[1]);
            return takePosition(sentence, rmc_, rmcHasFix(sentence.fields));
        case Kind::Gga:
            noteTime(sentence.fields[1]);
            ggaSinceGns_ = true;
            return takePosition(sentence, gga_, ggaHasFix(sentence.fields));
        case Kind::Vtg:
            return takePosition(sentence, vtg_, vtgHasSpeed(sentence.fields));
        case Kind::Gns:
            noteTime(sentence.fields[1]);
            return takeGns(sentence);
        case Kind::Gsa:
            return takeUsed(sentence);
        case Kind::Gsv:
            return takeInView(sentence);
    }
}

void TalkerMerge::noteTime(std::string_view field) {
    if (const auto time = timeOf(field))
        time_ = *time;
}

void TalkerMerge::takePosition(const Sentence& sentence, TalkerChoice& choice, bool hasFix) {
    if (!choice.hears(sentence.talker, hasFix, time_))
        return;
    if (sentence.talker == Talker::GP)
        handOn(sentence.text);
    else
        handOnAsGp(sentence);
}

void TalkerMerge::handOnAsGp(const Sentence& sentence) {
    const auto bits = [](std::string_view letters) {
        return static_cast<unsigned>(static_cast<unsigned char>(letters[0])) ^
               static_cast<unsigned char>(letters[1]);
    };
    const std::string_view line = sentence.line.substr(0, sentence.line.rfind('*'));
    made_ = "$GP";
    made_ += line.substr(kKindAt);
    appendSum(made_, sentence.sum ^ bits(kTalkerLetters.at(indexOf(sentence.talker))) ^ bits("GP"));
    handOn(made_);
}

/// Fields by number: 1 time, 2-5 position, 6 modes, 7 satellites, 8 dilution, 9 altitude, 10
/// height of the geoid, 11-12 age and number of the reference station.
void TalkerMerge::takeGns(const Sentence& sentence) {
    const Fields fields = sentence.fields;
    const bool stands = std::exchange(ggaSinceGns_, false);
    if (stands || fields.size() < kGnsFields)
        return;
    const char quality = qualityOf(fields[6]);
    if (!gga_.hears(sentence.talker, quality != '0', time_))
        return;
    made_ = "$GPGGA";
    for (std::size_t i = 1; i <= 5; ++i)
        appendField(made_, fields[i]);
    appendField(made_, std::string_view(&quality, 1));
    for (std::size_t i = 7; i <= 9; ++i)
        appendField(made_, fields[i]);
    appendField(made_, "M");
    appendField(made_, fields[10]);
    appendField(made_, "M");
    appendField(made_, fields[11]);
    appendField(made_, fields[12]);
    endLine(0);
    handOn(made_);
}

void TalkerMerge::takeUsed(const Sentence& sentence) {
    const Fields fields = sentence.fields;
    if (fields.size() < UsedRun::kFewestFields)
        return handOn(sentence.text);
    used_.add(sentence.talker, fields);
    sky_.lock()->setUsed(used_.systems(), used_.used());
    if (used_.isGpAlone())
        return handOn(sentence.text);
    constexpr std::size_t kDilution = 15;
    made_ = "$GPGSA";
    appendField(made_, fields[1]);
    appendNumber(made_, used_.fixMode(), 1);
    for (const int number : used_.gpsNumbers())
        appendNumber(made_, number, 2);
    made_.append(UsedRun::kMostInSentence - used_.gpsNumbers().size(), ',');
    for (std::size_t i = kDilution; i < UsedRun::kFewestFields; ++i)
        appendField(made_, fields[i]);
    endLine(0);
    handOn(made_);
}

void TalkerMerge::takeInView(const Sentence& sentence) {
    const Talker talker = sentence.talker;
    if (!SatelliteCycle::areFields(talker, sentence.fields))
        return handOn(sentence.text);
    if (talker == Talker::GP && !SatelliteCycle::nameSignal(sentence.fields))
        handOn(sentence.text);
    SatelliteCycle& cycle = inView_.at(indexOf(talker));
    if (!cycle.add(talker, sentence.fields))
        return;
    sky_.lock()->replace(talker, cycle.signals(), cycle.satellites());
    if (talker == Talker::GN || (talker == Talker::GP && cycle.namesSignals()))
        handOnInView(cycle);
}

/// The satellites of GPS and SBAS on the signal that every receiver hears.
void TalkerMerge::handOnInView(const SatelliteCycle& cycle) {
    constexpr std::uint8_t kFirstSignal = 1;
    constexpr std::size_t kInSentence = 4;
    const std::uint8_t signal = cycle.namesSignals() ? kFirstSignal : std::uint8_t{0};
    std::array<const SatelliteSignal*, SkyTable::kMostOfTalker> chosen{};
    std::size_t count = 0;
    for (const SatelliteSignal& satellite : cycle.satellites())
        if (satellite.signal == signal && gpsNumber(satellite.id))
            chosen.at(count++) = &satellite;
    const std::size_t messages = (count + kInSentence - 1) / kInSentence;
    std::array<std::size_t, SkyTable::kMostOfTalker / kInSentence + 1> starts{};
    for (std::size_t i = 0; i < count; ++i) {
        if (i % kInSentence == 0) {
            starts.at(i / kInSentence) = made_.size();
            made_ += "$GPGSV";
            appendNumber(made_, static_cast<int>(messages), 1);
            appendNumber(made_, static_cast<int>(i / kInSentence) + 1, 1);
            appendNumber(made_, static_cast<int>(count), 2);
        }
        const SatelliteSignal& satellite = *chosen.at(i);
        appendNumber(made_, *gpsNumber(satellite.id), 2);
        appendNumber(made_, satellite.elevationDeg, 2);
        appendNumber(made_, satellite.azimuthDeg, 3);
        appendNumber(made_, satellite.signalDb, 2);
        if (i % kInSentence + 1 == kInSentence || i + 1 == count)
            endLine(starts.at(i / kInSentence));
    }
    starts.at(messages) = made_.size();
    for (std::size_t i = 0; i < messages; ++i)
        handOn(std::string_view(made_).substr(starts.at(i), starts.at(i + 1) - starts.at(i)));
}

void TalkerMerge::endLine(std::size_t start) {
    unsigned sum = 0;
    for (const char c : std::string_view(made_).substr(start + 1))
        sum ^= static_cast<unsigned char>(c);
    appendSum(made_, sum);
}

}  // namespace korvel
