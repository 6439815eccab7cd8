#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <unordered_map>

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include "paint/Canvas.h"

namespace korvel {

/// One font at one size, with what text layout asks for again and again.
struct FontFace {
    explicit FontFace(const QFont& wanted);

    /// Pixels that `text` (UTF-8) advances. Without kerning, so that ASCII is a plain sum.
    double advance(std::string_view text) const;

    QFont font;
    QFontMetricsF metrics;
    double capHeight;
    double descent;  ///< of the lowest letters, not of the line
    std::array<double, 128> asciiAdvance{};
};

/// The program's typefaces: the family that the user configured for display text when it is
/// installed, else B612; and B612 Mono. Both B612 families are built into the program. User
/// interface thread only; needs a running QGuiApplication.
class DisplayFonts {
 public:
    /// `configured` is a family name. It is not used when its digits differ in width, since
    /// figures would then jump as they count.
    explicit DisplayFonts(const QString& configured);

    /// Loads the built-in faces once per process; false when they cannot be read.
    static bool loadBuiltIn();

    const FontFace& face(const Font& font);

    const QString& family() const { return family_; }

    /// A font for the toolkit's own widgets, `pixelHeight` high.
    QFont widgetFont(double pixelHeight) const;

 private:
    QString family_;
    std::unordered_map<unsigned, std::unique_ptr<FontFace>> faces_;
};

}  // namespace korvel
