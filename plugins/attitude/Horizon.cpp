// An example of an attitude plug-in: a plain horizon from sentences "$RPY,roll,pitch,yaw" in
// degrees, roll to the right and pitch up positive.

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>
#include <optional>
#include <string_view>
#include <system_error>

#include "AttitudePlugin.h"

namespace {

constexpr std::int64_t kFreshMs = 1000;
constexpr double kVisiblePitchDeg = 45;  // over the picture's height

struct Attitude {
    double rollDeg = 0;
    double pitchDeg = 0;
};

Attitude attitude;
bool isNew = false;
std::optional<std::int64_t> lastMs;

/// Takes the number in front of the next comma off the text.
std::optional<double> takeNumber(std::string_view& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (!text.empty())
        text.remove_prefix(1);
    return value;
}

}  // namespace

void ProcessMessage(const char* sentence) {
    constexpr std::string_view kBeginning = "$RPY,";
    std::string_view text(sentence);
    if (!text.starts_with(kBeginning))
        return;
    text.remove_prefix(kBeginning.size());
    const auto roll = takeNumber(text);
    const auto pitch = roll ? takeNumber(text) : std::nullopt;
    if (!pitch || std::abs(*pitch) > 90)
        return;
    attitude = {*roll, *pitch};
    isNew = true;
}

std::int32_t CheckAlive(std::int64_t nowMs) {
    if (isNew)
        lastMs = nowMs;
    isNew = false;
    return lastMs && nowMs - *lastMs <= kFreshMs ? 1 : 0;
}

void Draw(const KorvelPicture* picture) {
    const double roll = attitude.rollDeg * std::numbers::pi / 180;
    const double perDegree = picture->height / kVisiblePitchDeg;
    const double line = picture->height / 150.0;  // half of the horizon's width
    for (std::int32_t y = 0; y < picture->height; ++y) {
        std::uint32_t* const row =
            picture->pixels + static_cast<std::ptrdiff_t>(y) * picture->width;
        for (std::int32_t x = 0; x < picture->width; ++x) {
            const double right = x - picture->width / 2.0;
            const double up = picture->height / 2.0 - y;
            // In a right bank the world turns to the left.
            const double above =
                up * std::cos(roll) - right * std::sin(roll) + attitude.pitchDeg * perDegree;
            row[x] = std::abs(above) <= line ? picture->ink
                     : above > 0             ? picture->sky
                                             : picture->ground;
        }
    }
    // The aircraft: a bar across the middle.
    const auto mark = static_cast<std::int32_t>(3 * line);
    for (std::int32_t y = picture->height / 2 - mark / 2; y <= picture->height / 2 + mark / 2; ++y)
        for (std::int32_t x = picture->width * 2 / 5; x < picture->width * 3 / 5; ++x)
            picture->pixels[static_cast<std::ptrdiff_t>(y) * picture->width + x] = picture->ink;
}
