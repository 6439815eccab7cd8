#include "pages/StatusLine.h"

#include <algorithm>
#include <cmath>

#include "pages/ToneLook.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr double kTextShare = 0.7;  // of the line's height
constexpr double kFrame = 2;
constexpr double kRim = 0.35;  // beside the words in their box, of the type size
constexpr double kGap = 0.3;   // between two boxes, likewise

Font fontOf(double textPx) { return {.height = textPx, .weight = FontWeight::Bold}; }

double widthOf(const TextMeasure& texts, const std::string& words, double textPx) {
    return texts.measure(words, fontOf(textPx)).width + 2 * kRim * textPx;
}

double widthOfAll(const TextMeasure& texts, std::span<const Mode> modes, std::string Mode::*words,
                  double textPx) {
    double width = kGap * textPx;
    for (const Mode& mode : modes)
        width += widthOf(texts, mode.*words, textPx) + kGap * textPx;
    return width;
}

}  // namespace

StatusLine::StatusLine(const TextMeasure& texts, double width, double height,
                       std::span<const Mode> modes) {
    double textPx = std::round(height * kTextShare);
    const bool inShort = widthOfAll(texts, modes, &Mode::words, textPx) > width;
    std::string Mode::*const words = inShort ? &Mode::shortWords : &Mode::words;
    textPx *= std::min(1.0, width / widthOfAll(texts, modes, words, textPx));
    font = fontOf(textPx);
    double left = kGap * textPx;
    for (const Mode& mode : modes) {
        const double wide = widthOf(texts, mode.*words, textPx);
        marks.push_back({{left, 1, wide, height - 2}, mode.*words, mode.urgency});
        left += wide + kGap * textPx;
    }
}

void paintStatusLine(Canvas& canvas, std::span<const Mode> modes, const MapColorCache& colors) {
    canvas.rect(canvas.area(), Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    const StatusLine line(canvas.textMeasure(), canvas.width(), canvas.height(), modes);
    for (const StatusMark& mark : line.marks) {
        const ToneLook look = toneLook(mark.urgency, colors);
        canvas.rect(mark.area, Brush{look.frame}, std::nullopt);
        canvas.rect(grown(mark.area, -kFrame), Brush{look.ground}, std::nullopt);
        canvas.text(mark.area.center(), mark.words,
                    {.font = line.font,
                     .color = look.ink,
                     .alignX = AlignX::Center,
                     .alignY = AlignY::Middle});
    }
}

}  // namespace korvel
