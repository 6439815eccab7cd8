#include "pages/HsiPainter.h"

#include <string>

#include "paint/Clip.h"
#include "paint/MapColorCache.h"
#include "paint/Shapes.h"

namespace korvel {
namespace {

// The one colour that no scheme holds: without a valid course the triangle is a warning.
constexpr ColorValue kPureRed = Rgb(255, 0, 0);
constexpr double kMarkRadius = 3;

class HsiArtist {
 public:
    HsiArtist(Canvas& canvas, const HsiState& state, const MapColorCache& colors)
        : canvas_(canvas),
          geometry_(state),
          colors_(colors),
          gridPen_{colors[ColorKey::MapGrid], 2},
          linePen_{colors[ColorKey::HsiLine], 3},
          bearingPen_{colors[ColorKey::HsiBearing], 3},
          needlePen_{colors[ColorKey::HsiNeedle], 2},
          barPen_{colors[ColorKey::HsiNeedle], 8},
          labelFont_{static_cast<double>(state.labelHeight), FontWeight::Bold},
          toFrom_(state.toFrom) {}

    void card() {
        const auto ticks = geometry_.ticks();
        std::array<Segment, HsiGeometry::kTicks> lines;
        for (std::size_t i = 0; i < ticks.size(); ++i)
            lines.at(i) = ticks.at(i).line;
        canvas_.lines(lines, linePen_);
        // Ground and halo keep wide labels free of the ticks and of what the map has there.
        const Brush ground{colors_[ColorKey::MapBackground]};
        TextStyle style = centered(ColorKey::HsiNumeral);
        style.halo = colors_[ColorKey::MapBackground];
        for (const HsiGeometry::Tick& tick : ticks) {
            if (!tick.labelled)
                continue;
            const std::string label = HsiGeometry::labelText(tick.value);
            const TextExtent extent = canvas_.textMeasure().measure(label, labelFont_);
            const Point center = geometry_.labelBox(tick, extent.width).center();
            canvas_.rect(grown({center.x - extent.width / 2, center.y - extent.capHeight / 2,
                                extent.width, extent.capHeight},
                               2),
                         ground, std::nullopt);
            canvas_.text(center, label, style);
        }
    }

    void needle() {
        const auto needle = geometry_.needle();
        if (!needle)
            return;
        for (const Point& mark : needle->marks)
            canvas_.circle(mark, kMarkRadius, Brush{linePen_.color}, std::nullopt);
        canvas_.line(needle->front.from, needle->front.to, needlePen_);
        canvas_.line(needle->tail.from, needle->tail.to, needlePen_);
        if (needle->bar)
            canvas_.line(needle->bar->from, needle->bar->to, barPen_);
        canvas_.polygon(needle->head, Brush{needlePen_.color}, std::nullopt);
        canvas_.polygon(needle->toFrom,
                        Brush{toFrom_ == 0 ? kPureRed : colors_[ColorKey::HsiNumeral]},
                        std::nullopt);
    }

    void bearing() {
        if (const auto chords = geometry_.bearingMark())
            canvas_.lines(*chords, bearingPen_);
    }

    void aircraft(Point center) {
        const auto outline = aircraftOutline(center, geometry_.aircraftHalfLength(), 0);
        canvas_.polygon(outline, std::nullopt, Pen{colors_[ColorKey::MapBackground], 3});
        canvas_.polygon(outline, Brush{colors_[ColorKey::HsiAirplane]}, std::nullopt);
    }

    void readOut() {
        const std::string text = geometry_.headingText();
        const auto readOut =
            geometry_.readOut(canvas_.textMeasure().measure(text, labelFont_).width);
        canvas_.rect(readOut.box, Brush{colors_[ColorKey::MapBackground]}, gridPen_);
        canvas_.text(readOut.textCenter, text, centered(ColorKey::HsiTrack));
        canvas_.polyline(readOut.pointer, linePen_);
    }

    void note(std::string_view text) {
        TextStyle style = centered(ColorKey::HsiNumeral);
        style.font = HsiGeometry::noteFont(labelFont_.height);
        style.halo = colors_[ColorKey::MapBackground];
        const double width = canvas_.textMeasure().measure(text, style.font).width;
        const Rect box = geometry_.noteBox(width, style.font.height);
        canvas_.rect(box, Brush{colors_[ColorKey::MapBackground]}, std::nullopt);
        canvas_.text(box.center(), text, style);
    }

 private:
    TextStyle centered(ColorKey color) const {
        return {.font = labelFont_,
                .color = colors_[color],
                .alignX = AlignX::Center,
                .alignY = AlignY::Middle};
    }

    Canvas& canvas_;
    HsiGeometry geometry_;
    const MapColorCache& colors_;
    Pen gridPen_;
    Pen linePen_;
    Pen bearingPen_;
    Pen needlePen_;
    Pen barPen_;
    Font labelFont_;
    int toFrom_;
};

}  // namespace

void paintHsi(Canvas& canvas, const HsiState& state, const MapColorCache& colors,
              std::string_view note) {
    HsiArtist artist(canvas, state, colors);
    artist.card();
    if (!note.empty())
        artist.note(note);
    artist.needle();
    artist.bearing();
    artist.aircraft({static_cast<double>(state.centerX), static_cast<double>(state.centerY)});
    artist.readOut();
}

}  // namespace korvel
