#include "paint/TextLine.h"

namespace korvel {
namespace {

/// Takes the last letter with all of its bytes.
void dropLetter(std::string& text) {
    const auto continues = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    while (text.size() > 1 && continues(text.back()))
        text.pop_back();
    text.pop_back();
}

}  // namespace

void writeFrom(Canvas& canvas, Point begin, std::string_view words, const Font& font,
               ColorValue color) {
    canvas.text(begin, words, {.font = font, .color = color, .alignY = AlignY::Middle});
}

void writeUpTo(Canvas& canvas, Point end, std::string_view words, const Font& font,
               ColorValue color) {
    canvas.text(end, words,
                {.font = font, .color = color, .alignX = AlignX::Right, .alignY = AlignY::Middle});
}

std::string fittingText(const TextMeasure& texts, std::string whole, const Font& font,
                        double width) {
    if (texts.measure(whole, font).width <= width)
        return whole;
    while (!whole.empty() && texts.measure(whole + "…", font).width > width)
        dropLetter(whole);
    return whole.empty() ? whole : whole + "…";
}

}  // namespace korvel
