#include "paint/B612Metrics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Utf8.h"

namespace korvel {
namespace {

// Advance widths in units of 1/2000 em, read from the tables "hmtx" and "cmap" of
// B612-Regular.otf, Debian package fonts-b612 (B612-Bold.otf has the same).
constexpr double kUnitsPerEm = 2000;
constexpr double kCapHeight = 1500;
constexpr double kDescent = 440;
constexpr double kDigitAdvance = 1300;  // also every letter of B612 Mono

constexpr std::uint32_t kFirstAscii = 0x20;
constexpr std::array<std::uint16_t, 95> kAscii{
    700,  700,  800,  1700, 1100, 1800, 1400, 400,  900,  900,  1100, 1200, 500,  900,  600,  1100,
    1300, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 600,  500,  1300, 1000, 1300, 1100,
    2000, 1300, 1300, 1200, 1300, 1200, 1100, 1300, 1400, 600,  900,  1200, 1100, 1800, 1500, 1600,
    1200, 1600, 1300, 1100, 1200, 1400, 1300, 1900, 1300, 1200, 1200, 900,  1100, 1000, 1500, 1100,
    1100, 1050, 1200, 1000, 1200, 1100, 800,  1200, 1200, 600,  600,  1100, 700,  1800, 1200, 1200,
    1200, 1200, 800,  900,  800,  1200, 1100, 1500, 1100, 1100, 1000, 1298, 400,  1200, 1500};

constexpr std::uint32_t kFirstLatin1 = 0xA0;
constexpr std::array<std::uint16_t, 96> kLatin1{
    700,  700,  1000, 1100, 1200, 1200, 400,  1000, 1100, 1100, 800,  1400, 1700, 0,    1100, 1100,
    600,  1200, 600,  600,  1100, 1300, 1400, 500,  1100, 600,  800,  1400, 1500, 1500, 1500, 1100,
    1300, 1300, 1300, 1300, 1300, 1300, 1700, 1300, 1200, 1200, 1200, 1200, 600,  600,  600,  600,
    1300, 1500, 1600, 1600, 1600, 1600, 1600, 1600, 1600, 1400, 1400, 1400, 1400, 1200, 1300, 1300,
    1100, 1100, 1100, 1100, 1100, 1100, 1700, 1042, 1100, 1100, 1100, 1100, 600,  600,  600,  600,
    1300, 1200, 1200, 1200, 1200, 1200, 1200, 1100, 1200, 1200, 1200, 1200, 1200, 1100, 1200, 1100};

struct Other {
    std::uint32_t code;
    std::uint16_t advance;
};
constexpr std::array kOthers{Other{0x2013, 1100}, Other{0x2014, 2100}, Other{0x2018, 700},
                             Other{0x2019, 700},  Other{0x2026, 1500}, Other{0x2032, 500},
                             Other{0x2033, 800},  Other{0x2190, 1500}, Other{0x2191, 1000},
                             Other{0x2192, 1500}, Other{0x2193, 1000}, Other{0x2212, 1100}};

double advanceOf(std::uint32_t code) {
    if (code >= kFirstAscii && code - kFirstAscii < kAscii.size())
        return kAscii.at(code - kFirstAscii);
    if (code >= kFirstLatin1 && code - kFirstLatin1 < kLatin1.size())
        return kLatin1.at(code - kFirstLatin1);
    const auto* other = std::find_if(kOthers.begin(), kOthers.end(),
                                     [code](const Other& each) { return each.code == code; });
    return other == kOthers.end() ? kDigitAdvance : other->advance;
}

}  // namespace

TextExtent B612Metrics::measure(std::string_view text, const Font& font) const {
    double units = 0;
    while (!text.empty()) {
        const std::uint32_t code = takeCodePoint(text);
        units += font.monospaced ? kDigitAdvance : advanceOf(code);
    }
    const double scale = font.height / kUnitsPerEm;
    return {units * scale, kCapHeight * scale, kDescent * scale};
}

}  // namespace korvel
