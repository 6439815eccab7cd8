#include "map/layers/FurnitureLayer.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "geo/WholeDegreeTrig.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

class FurniturePainter {
 public:
    FurniturePainter(const MapContent& content, Canvas& canvas)
        : content_(content),
          textPx_(content.view.textPx),
          canvas_(canvas),
          ground_{content.colors[ColorKey::MapInfoBackground]},
          ink_(content.colors[ColorKey::MapInfoText]) {}

    void box(const InfoBox& box) {
        canvas_.rect(box.area, ground_, std::nullopt);
        const Font font = infoFont(textPx_);
        const Point center = box.area.center();
        const std::string_view text = box.text;
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) {
            canvas_.text(center, text, centered(font, ink_));
            return;
        }
        const double apart = lineHeight(font) / 2;
        canvas_.text({center.x, center.y - apart}, text.substr(0, end), centered(font, ink_));
        canvas_.text({center.x, center.y + apart}, text.substr(end + 1), centered(font, ink_));
    }

    // Not in the colours of information: a thick frame and a word in the colour of danger.
    void alarm(const InfoBox& box) {
        const ColorValue danger = content_.colors[ColorKey::MapObstacleDanger];
        const ColorValue background = content_.colors[ColorKey::MapBackground];
        const double edge = 3;
        canvas_.rect(box.area, Brush{danger}, std::nullopt);
        canvas_.rect({box.area.x + edge, box.area.y + edge, box.area.width - 2 * edge,
                      box.area.height - 2 * edge},
                     Brush{background}, std::nullopt);
        canvas_.text(box.area.center(), box.text, centered(alarmFont(textPx_), danger));
    }

    void scale(const ScaleBar& scale) {
        canvas_.rect(scale.area, ground_, std::nullopt);
        const double tick = textPx_ * 0.3;
        const Pen pen{ink_, 2, PenStyle::Solid};
        const Segment& bar = scale.bar;
        const std::array shape{
            Segment{bar.from, bar.to},
            Segment{{bar.from.x, bar.from.y - tick}, {bar.from.x, bar.from.y + tick}},
            Segment{{bar.to.x, bar.to.y - tick}, {bar.to.x, bar.to.y + tick}}};
        canvas_.lines(shape, pen);
        canvas_.text({scale.area.center().x, (scale.area.y + bar.from.y - tick) / 2}, scale.text,
                     centered(infoFont(textPx_), ink_));
    }

    void northArrow(const Rect& area) {
        const Point center = area.center();
        const double radius = area.width / 2;
        canvas_.circle(center, radius, ground_, std::nullopt);
        const int north = -content_.view.projection.angleDeg();
        const auto place = [&](double right, double ahead) {
            return Point{center.x + radius * (ahead * SinDeg(north) + right * CosDeg(north)),
                         center.y - radius * (ahead * CosDeg(north) - right * SinDeg(north))};
        };
        canvas_.polygon(
            std::array{place(0, 0.95), place(0.48, 0.26), place(0, 0.38), place(-0.48, 0.26)},
            Brush{ink_}, std::nullopt);
        canvas_.text(place(0, -0.3), "N", centered(infoFont(textPx_), ink_));
    }

 private:
    static TextStyle centered(const Font& font, ColorValue color) {
        return {.font = font, .color = color, .alignX = AlignX::Center, .alignY = AlignY::Middle};
    }

    const MapContent& content_;
    double textPx_;
    Canvas& canvas_;
    Brush ground_;
    ColorValue ink_;
};

}  // namespace

void FurnitureLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    furniture_ = layOutFurniture(texts, view().area, content().data, view().projection,
                                 view().rangeNm, view().textPx,
                                 {.moved = content().moved,
                                  .sparse = content().sparseNote,
                                  .terrain = content().terrainNote,
                                  .trustMarks = content().trustMarks,
                                  .alarms = content().alarms});
    for (const Rect& area : furniture_.areas())
        room.taken.reserve(area);
}

void FurnitureLayer::paint(Canvas& canvas) const {
    FurniturePainter painter(content(), canvas);
    painter.northArrow(furniture_.northArrow);
    painter.box(furniture_.range);
    painter.scale(furniture_.scale);
    for (const InfoBox& note : furniture_.notes)
        painter.box(note);
    if (furniture_.message)
        painter.box(*furniture_.message);
    if (furniture_.alarm)
        painter.alarm(*furniture_.alarm);
}

}  // namespace korvel
