#include "pages/StatusScreen.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "paint/Clip.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr double kLineStep = 1.35;  // of the type size
constexpr double kSmallShare = 0.6;

struct Line {
    std::string_view text;
    bool large = true;
};

void appendLines(std::string_view text, bool large, std::vector<Line>& lines) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back({text.substr(0, end), large});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::vector<Line> linesFor(const CockpitData& data) {
    std::vector<Line> lines;
    if (data.lastPosition)
        appendLines(text(kStatusTexts.noGpsSignal), true, lines);
    appendLines(data.status, true, lines);
    if (!data.receiverActive) {
        if (!lines.empty())
            lines.push_back({"", false});
        appendLines(text(kStatusTexts.connectingHelp), lines.empty(), lines);
    }
    if (!data.message.empty()) {
        lines.push_back({"", false});
        appendLines(data.message, false, lines);
    }
    if (!data.databaseNotice.empty()) {
        lines.push_back({"", false});
        lines.push_back({data.databaseNotice, false});
    }
    return lines;
}

Font fontFor(const Line& line, double size) {
    return {.height = line.large ? size : size * kSmallShare,
            .weight = line.large ? FontWeight::Bold : FontWeight::Regular};
}

// The type size, at most `wanted`, in which all lines fit across the canvas.
double fittingSize(const TextMeasure& texts, const Rect& page, const std::vector<Line>& lines,
                   double wanted) {
    double size = wanted;
    for (const Line& line : lines) {
        const double width = texts.measure(line.text, fontFor(line, size)).width;
        size *= std::min(1.0, 0.92 * page.width / std::max(width, 1.0));
    }
    return std::floor(size);
}

double heightOf(const std::vector<Line>& lines, double size) {
    double total = 0;
    for (const Line& line : lines)
        total += fontFor(line, size).height * kLineStep;
    return total;
}

void writeLines(Canvas& canvas, const std::vector<Line>& lines, double size, double top,
                const MapColorCache& colors) {
    for (const Line& line : lines) {
        const Font font = fontFor(line, size);
        if (!line.text.empty())
            canvas.text({canvas.width() / 2, top + font.height * kLineStep / 2}, line.text,
                        {.font = font,
                         .color = colors[ColorKey::HsiNumeral],
                         .alignX = AlignX::Center,
                         .alignY = AlignY::Middle});
        top += font.height * kLineStep;
    }
}

void paintLines(Canvas& canvas, const std::vector<Line>& lines, const MapColorCache& colors) {
    canvas.rect({0, 0, canvas.width(), canvas.height()}, Brush{colors[ColorKey::MapBackground]},
                std::nullopt);
    const double wanted =
        std::clamp(std::min(canvas.width() / 16, canvas.height() / 9), 16.0, 56.0);
    const double size = fittingSize(canvas.textMeasure(), canvas.area(), lines, wanted);
    writeLines(canvas, lines, size, (canvas.height() - heightOf(lines, size)) / 2, colors);
}

}  // namespace

void paintStatusScreen(Canvas& canvas, const CockpitData& data, const MapColorCache& colors) {
    paintLines(canvas, linesFor(data), colors);
}

void paintStatusCard(Canvas& canvas, const CockpitData& data, const MapColorCache& colors) {
    // The map says the rest itself.
    CockpitData connection;
    connection.status = data.status;
    connection.receiverActive = data.receiverActive;
    const std::vector<Line> lines = linesFor(connection);
    if (lines.empty())
        return;
    const double wanted =
        std::clamp(std::min(canvas.width() / 34, canvas.height() / 15), 14.0, 32.0);
    const double size = fittingSize(canvas.textMeasure(), canvas.area(), lines, wanted);
    double width = 0;
    for (const Line& line : lines)
        width = std::max(width, canvas.textMeasure().measure(line.text, fontFor(line, size)).width);
    const double height = heightOf(lines, size);
    const Rect words{(canvas.width() - width) / 2, 0.4 * canvas.height() - height / 2, width,
                     height};
    canvas.rect(grown(words, size), Brush{colors[ColorKey::MapBackground]},
                Pen{colors[ColorKey::HsiNumeral], 2});
    writeLines(canvas, lines, size, words.y, colors);
}

void paintNotice(Canvas& canvas, std::string_view words, const MapColorCache& colors) {
    std::vector<Line> lines;
    appendLines(words, true, lines);
    for (std::size_t i = 1; i < lines.size(); ++i)
        lines[i].large = false;
    paintLines(canvas, lines, colors);
}

}  // namespace korvel
