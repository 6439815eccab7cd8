#include "pages/SatellitePage.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "pages/SatelliteSymbol.h"
#include "pages/ScreenLayout.h"
#include "paint/MapColorCache.h"
#include "paint/Polar.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kFullScaleDb = 60;
constexpr int kStepDb = 20;
constexpr std::size_t kFewestInRow = 12;
constexpr std::size_t kMostInRow = 16;
constexpr double kFaded = 0.55;

class SatellitePainter {
 public:
    SatellitePainter(Canvas& canvas, const MapColorCache& colors)
        : canvas_(canvas),
          colors_(colors),
          textPx_(mapTextPx(canvas.width(), canvas.height())),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::HsiNumeral]),
          line_(colors[ColorKey::HsiLine]) {}

    void paint(const CockpitData& data) {
        const double width = canvas_.width();
        const double height = canvas_.height();
        canvas_.rect({0, 0, width, height}, Brush{background_}, std::nullopt);
        const double margin = textPx_;
        const double titleHeight = std::round(textPx_ * 2.4);
        title(data, {margin, margin / 2, width - 2 * margin, titleHeight});
        const Rect rest{margin, titleHeight + margin, width - 2 * margin,
                        height - titleHeight - 2 * margin};
        const std::vector<Satellite>& satellites = data.satellites;
        const bool beside = rest.width > rest.height;
        const double side = beside ? std::min(rest.height, rest.width * 0.45)
                                   : std::min(rest.width, rest.height * 0.55);
        const Rect skyArea = beside ? Rect{rest.x, rest.y, side, rest.height}
                                    : Rect{rest.x, rest.y, rest.width, side};
        const Rect barArea =
            beside ? Rect{rest.x + side + 2 * margin, rest.y, rest.width - side - 2 * margin,
                          rest.height}
                   : Rect{rest.x, rest.y + side + margin, rest.width, rest.height - side - margin};
        sky(satellites, skyArea);
        if (satellites.empty())
            reason(data, barArea);
        else if (satellites.front().system)
            rowsOfBars(satellites, barArea);
        else
            bars(satellites, barArea, kFewestInRow);
    }

 private:
    TextStyle style(const Font& font, ColorValue color) const {
        return {.font = font, .color = color, .alignX = AlignX::Center, .alignY = AlignY::Middle};
    }
    Font small() const { return {.height = textPx_}; }
    Font bold(double share) const {
        return {.height = std::round(textPx_ * share), .weight = FontWeight::Bold};
    }

    void title(const CockpitData& data, const Rect& area) {
        canvas_.text(area.center(), fixText(data), style(bold(1.5), ink_));
    }

    void sky(const std::vector<Satellite>& satellites, const Rect& area) {
        const Point center = area.center();
        const double radius = std::min(area.width, area.height) / 2 - 1.6 * textPx_;
        const Pen pen{blended(line_, background_, kFaded), 1, PenStyle::Solid};
        canvas_.circle(center, radius, std::nullopt, {{line_, 2, PenStyle::Solid}});
        for (const int elevation : {30, 60}) {
            const double ring = radius * (90 - elevation) / 90;
            canvas_.circle(center, ring, std::nullopt, pen);
            TextStyle label = style({.height = std::max(11.0, textPx_ * 0.8)},
                                    blended(ink_, background_, kFaded));
            label.halo = background_;
            canvas_.text({center.x, center.y - ring}, formatInt(elevation) + "°", label);
        }
        canvas_.line({center.x - radius, center.y}, {center.x + radius, center.y}, pen);
        canvas_.line({center.x, center.y - radius}, {center.x, center.y + radius}, pen);
        constexpr std::string_view kCorners = "NESW";
        for (std::size_t i = 0; i < kCorners.size(); ++i) {
            const int angle = static_cast<int>(i) * 90;
            const double out = radius + 0.85 * textPx_;
            canvas_.text(polar(center, out, angle), kCorners.substr(i, 1), style(bold(1.1), ink_));
        }
        for (const bool used : {false, true})  // the used ones on top
            for (const Satellite& satellite : satellites)
                if (satellite.used == used && satellite.inSky())
                    disc(satellite, skyPoint(satellite, center, radius));
    }

    void disc(const Satellite& satellite, Point at) {
        const ColorValue color = colorOf(satellite);
        const ColorValue fill = satellite.used ? color : background_;
        paintSatelliteSymbol(canvas_, satellite.system, at, textPx_ * 0.95, fill, color);
        canvas_.text(at, formatInt(satellite.number),
                     style(bold(satellite.number < 100 ? 0.95 : 0.75), numberColor(satellite)));
    }

    /// Without systems only those in use have a colour.
    ColorValue colorOf(const Satellite& satellite) const {
        return satellite.used || satellite.system ? satelliteColor(satellite.system, colors_)
                                                  : line_;
    }
    ColorValue numberColor(const Satellite& satellite) const {
        if (!satellite.used)
            return ink_;
        return satellite.system ? readableOn(colorOf(satellite), background_, ink_)
                                : colors_.chosenInk();
    }

    /// As many rows as it takes for numbers that can be read, and the legend below them.
    void rowsOfBars(std::span<const Satellite> satellites, const Rect& area) {
        const double legendHeight = legend(satellites, area);
        const std::size_t rows = (satellites.size() + kMostInRow - 1) / kMostInRow;
        const std::size_t inRow = (satellites.size() + rows - 1) / rows;
        const Rect chart{area.x, area.y, area.width, area.height - legendHeight};
        const std::vector<Rect> places = gridCells(chart, 1, rows);
        for (const Rect& place : places) {
            const auto here = satellites.first(std::min(inRow, satellites.size()));
            bars(here, place, std::max(kFewestInRow, inRow));
            satellites = satellites.subspan(here.size());
        }
    }

    /// The systems in view and what filled and hollow mean, at the bottom of the area, in as many
    /// lines as it takes. Returns its height.
    double legend(std::span<const Satellite> satellites, const Rect& area) {
        struct Entry {
            std::optional<SatelliteSystem> system;
            std::string_view words;
            bool filled;
        };
        std::vector<Entry> entries;
        for (const Satellite& satellite : satellites)
            if (entries.empty() || entries.back().system != satellite.system)
                entries.push_back({satellite.system, systemName(*satellite.system), true});
        entries.push_back({std::nullopt, text(kInstrumentTexts.satelliteUsed), true});
        entries.push_back({std::nullopt, text(kInstrumentTexts.satelliteNotUsed), false});
        const double lineHeight = 1.7 * textPx_;
        std::vector<Point> places;
        Point next{area.x, 0};
        for (const Entry& entry : entries) {
            const double width =
                canvas_.textMeasure().measure(entry.words, small()).width + 3 * textPx_;
            if (next.x > area.x && next.x + width > area.right())
                next = {area.x, next.y + lineHeight};
            places.push_back(next);
            next.x += width;
        }
        const double top = area.bottom() - next.y - lineHeight / 2;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const Point at{places[i].x + textPx_, places[i].y + top};
            const Entry& entry = entries[i];
            const ColorValue color = entry.system ? satelliteColor(entry.system, colors_) : line_;
            paintSatelliteSymbol(canvas_, entry.system, at, textPx_ * 0.5,
                                 entry.filled ? color : background_, color);
            TextStyle words = style(small(), ink_);
            words.alignX = AlignX::Left;
            canvas_.text({at.x + textPx_, at.y}, entry.words, words);
        }
        return next.y + 1.5 * lineHeight;
    }

    void bars(std::span<const Satellite> satellites, const Rect& area, std::size_t columnCount) {
        const double numberHeight = 1.6 * textPx_;
        TextStyle scaleStyle = style(small(), blended(ink_, background_, kFaded));
        scaleStyle.alignX = AlignX::Right;
        const double scaleWidth =
            canvas_.textMeasure().measure("dB", small()).width + 0.4 * textPx_;
        const Rect chart{area.x + scaleWidth, area.y + numberHeight, area.width - scaleWidth,
                         area.height - 2 * numberHeight};
        const std::vector<Rect> columns = gridCells(chart, columnCount, 1);
        // In a low row figures would stand over each other.
        const bool isLow = chart.height * kStepDb / kFullScaleDb < 1.1 * textPx_;
        for (const int db : {kStepDb, 2 * kStepDb}) {
            const double y = chart.bottom() - chart.height * db / kFullScaleDb;
            if (!isLow || db > kStepDb)
                canvas_.text({area.x + scaleWidth - 0.4 * textPx_, y}, formatInt(db), scaleStyle);
            canvas_.line({chart.x, y}, {chart.right(), y},
                         {blended(line_, background_, 0.75), 1, PenStyle::Solid});
        }
        if (!isLow)
            canvas_.text({area.x + scaleWidth - 0.4 * textPx_, chart.y}, "dB", scaleStyle);
        canvas_.line({chart.x, chart.bottom()}, {chart.right(), chart.bottom()},
                     {line_, 2, PenStyle::Solid});
        for (std::size_t i = 0; i < satellites.size(); ++i)
            bar(satellites[i], columns[i]);
    }

    void bar(const Satellite& satellite, const Rect& column) {
        const double gap = std::round(column.width * 0.14);
        const double level = std::clamp(satellite.signalDb / kFullScaleDb, 0.0, 1.0);
        const double top = std::round(column.bottom() - column.height * level);
        const Rect box{column.x + gap, top, column.width - 2 * gap, column.bottom() - top};
        const double middle = column.center().x;
        canvas_.text({middle, column.bottom() + 0.95 * textPx_}, formatInt(satellite.number),
                     style(bold(1), ink_));
        if (satellite.signalDb > 0) {
            const ColorValue color = colorOf(satellite);
            canvas_.rect(box, Brush{color}, std::nullopt);
            if (!satellite.used && box.height > 4)
                canvas_.rect({box.x + 2, box.y + 2, box.width - 4, box.height - 2},
                             Brush{background_}, std::nullopt);
        }
        canvas_.text({middle, top - 0.75 * textPx_},
                     satellite.signalDb > 0 ? formatInt(satellite.signalDb) : "-",
                     style(small(), ink_));
    }

    void reason(const CockpitData& data, const Rect& area) {
        std::string_view lines = data.status;
        if (lines.empty())
            lines = text(data.simulated ? kStatusTexts.simulatorHasNoSatellites
                                        : kStatusTexts.waitingForSatellites);
        const auto count = 1 + std::count(lines.begin(), lines.end(), '\n');
        double y = area.center().y - 1.05 * textPx_ * static_cast<double>(count - 1);
        while (!lines.empty()) {
            const std::size_t end = std::min(lines.find('\n'), lines.size());
            TextStyle words = style(bold(1.4), ink_);
            const double width =
                canvas_.textMeasure().measure(lines.substr(0, end), words.font).width;
            words.font.height *= std::min(1.0, area.width / std::max(width, 1.0));
            canvas_.text({area.center().x, y}, lines.substr(0, end), words);
            lines.remove_prefix(std::min(end + 1, lines.size()));
            y += 2.1 * textPx_;
        }
    }

    Canvas& canvas_;
    const MapColorCache& colors_;
    double textPx_;
    ColorValue background_;
    ColorValue ink_;
    ColorValue line_;
};

}  // namespace

Point skyPoint(const Satellite& satellite, Point center, double radius) {
    const double out = radius * (90 - satellite.elevationDeg) / 90;
    return polar(center, out, satellite.azimuthDeg);
}

std::string fixText(const CockpitData& data) {
    if (data.simulated && data.fixQuality == 0)
        return std::string(text(kStatusTexts.simulator));
    std::string_view fix = text(kInstrumentTexts.noFix);
    if (data.fixQuality != 0)
        fix = text(data.fix3D   ? kInstrumentTexts.fix3D
                   : data.fix2D ? kInstrumentTexts.fix2D
                                : kInstrumentTexts.fix);
    return data.satsInUse == 1
               ? formatText(kInstrumentTexts.fixWithOneSatellite, {fix})
               : formatText(kInstrumentTexts.fixWithSatellites, {fix, data.satsInUse});
}

void paintSatellitePage(Canvas& canvas, const CockpitData& data, const MapColorCache& colors) {
    SatellitePainter(canvas, colors).paint(data);
}

}  // namespace korvel
