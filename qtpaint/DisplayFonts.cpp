#include "qtpaint/DisplayFonts.h"

#include <algorithm>
#include <cmath>

#include <QFontDatabase>
#include <QFontInfo>

namespace korvel {
namespace {

constexpr int kSmallestPixels = 6;
constexpr int kLargestPixels = 512;

QString builtInFamily() { return QStringLiteral("Korvel B612"); }
QString builtInMonoFamily() { return QStringLiteral("Korvel B612 Mono"); }

QFont makeFont(const QString& family, int pixels, QFont::Weight weight) {
    QFont font(family);
    font.setPixelSize(pixels);
    font.setWeight(weight);
    font.setKerning(false);
    // Grey smoothing only: coloured fringes would not survive halos and turned screens.
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(
        QFont::PreferAntialias | QFont::NoSubpixelAntialias | QFont::PreferNoShaping));
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

bool hasTabularDigits(const QString& family) {
    const QFontMetricsF metrics(makeFont(family, 100, QFont::Normal));
    const double zero = metrics.horizontalAdvance(QLatin1Char('0'));
    constexpr std::string_view kOthers = "123456789";
    return std::all_of(kOthers.begin(), kOthers.end(), [&](char digit) {
        return std::abs(metrics.horizontalAdvance(QLatin1Char(digit)) - zero) < 0.5;
    });
}

bool isUsable(const QString& family) {
    return !family.isEmpty() && QFontDatabase::hasFamily(family) && hasTabularDigits(family);
}

}  // namespace

FontFace::FontFace(const QFont& wanted)
    : font(wanted),
      metrics(wanted),
      capHeight(metrics.capHeight()),
      descent(metrics.tightBoundingRect(QStringLiteral("gjpqy")).bottom()) {
    for (std::size_t code = 0; code < asciiAdvance.size(); ++code)
        asciiAdvance.at(code) = metrics.horizontalAdvance(QChar(static_cast<char16_t>(code)));
}

double FontFace::advance(std::string_view text) const {
    double sum = 0;
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code >= asciiAdvance.size())
            return metrics.horizontalAdvance(
                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
        sum += asciiAdvance.at(code);
    }
    return sum;
}

DisplayFonts::DisplayFonts(const QString& configured)
    : family_(loadBuiltIn() && !isUsable(configured) ? builtInFamily() : configured) {}

bool DisplayFonts::loadBuiltIn() {
    static const bool loaded = [] {
        bool all = true;
        for (const char* name : {"B612Mono-Regular", "B612Mono-Bold", "B612-Regular", "B612-Bold"})
            all = QFontDatabase::addApplicationFont(
                      QStringLiteral(":/fonts/%1.otf").arg(QLatin1String(name))) >= 0 &&
                  all;
        return all;
    }();
    return loaded;
}

const FontFace& DisplayFonts::face(const Font& font) {
    const int pixels =
        std::clamp(static_cast<int>(std::lround(font.height)), kSmallestPixels, kLargestPixels);
    const bool bold = font.weight == FontWeight::Bold;
    const unsigned key =
        static_cast<unsigned>(pixels) * 4U + (bold ? 2U : 0U) + (font.monospaced ? 1U : 0U);
    std::unique_ptr<FontFace>& slot = faces_[key];
    if (!slot)
        slot = std::make_unique<FontFace>(makeFont(font.monospaced ? builtInMonoFamily() : family_,
                                                   pixels, bold ? QFont::Bold : QFont::Normal));
    return *slot;
}

QFont DisplayFonts::widgetFont(double pixelHeight) const {
    return makeFont(family_, std::max(kSmallestPixels, static_cast<int>(std::lround(pixelHeight))),
                    QFont::Normal);
}

}  // namespace korvel
