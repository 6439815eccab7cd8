#include "paint/TypeSizes.h"

#include <algorithm>
#include <cmath>

namespace korvel {

double mapTextPx(double width, double height) {
    return std::clamp(std::round(std::min(width, height) / 40), 14.0, 22.0);
}

double instrumentTextPx(double width, double height) {
    return std::clamp(std::round(std::min(width / 28, height / 30)), 14.0, 44.0);
}

Font infoFont(double textPx) { return {.height = textPx + 2, .weight = FontWeight::Bold}; }

Font alarmFont(double textPx) {
    return {.height = std::round(textPx * 1.6), .weight = FontWeight::Bold};
}

double boxMargin(const Font& font) { return std::round(font.height * 0.55); }

double lineHeight(const Font& font) { return std::round(font.height * 1.2); }

double boxHeight(const Font& font) { return std::round(font.height * 1.5); }

}  // namespace korvel
