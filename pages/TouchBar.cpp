#include "pages/TouchBar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "pages/ScreenLayout.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

// Draws one icon in a square; its coordinates run from -1 to 1 around the middle.
class IconPen {
 public:
    IconPen(Canvas& canvas, Point center, double size, ColorValue color)
        : canvas_(canvas),
          center_(center),
          half_(size / 2),
          pen_{color, std::max(1.5, size / 11), PenStyle::Solid} {}

    void path(std::initializer_list<Point> points) { canvas_.polyline(placed(points), pen_); }
    void solid(std::initializer_list<Point> points) {
        canvas_.polygon(placed(points), Brush{pen_.color}, std::nullopt);
    }
    void ring(Point at, double radius) {
        canvas_.circle(placed(at), radius * half_, std::nullopt, pen_);
    }
    void dot(Point at, double radius) {
        canvas_.circle(placed(at), radius * half_, Brush{pen_.color}, std::nullopt);
    }

 private:
    Point placed(Point point) const {
        return {center_.x + point.x * half_, center_.y + point.y * half_};
    }
    std::vector<Point> placed(std::initializer_list<Point> points) const {
        std::vector<Point> result;
        for (const Point& point : points)
            result.push_back(placed(point));
        return result;
    }

    Canvas& canvas_;
    Point center_;
    double half_;
    Pen pen_;
};

void menuIcon(IconPen& icon) {  // three lines of a list
    for (const double y : {-0.6, 0.0, 0.6})
        icon.path({{-0.85, y}, {0.85, y}});
}

void pageIcon(IconPen& icon) {  // two sheets, one behind the other
    icon.path({{-0.4, -0.55}, {-0.4, -0.85}, {0.75, -0.85}, {0.75, 0.5}, {0.45, 0.5}});
    icon.path({{-0.75, -0.5}, {0.4, -0.5}, {0.4, 0.85}, {-0.75, 0.85}, {-0.75, -0.5}});
}

void directToIcon(IconPen& icon) {  // the letter D with an arrow through it
    icon.path({{-0.45, -0.8}, {-0.45, 0.8}, {0.0, 0.8}, {0.4, 0.55}, {0.55, 0.2}});
    icon.path({{-0.45, -0.8}, {0.0, -0.8}, {0.4, -0.55}, {0.55, -0.2}});
    icon.path({{-0.95, 0.0}, {0.6, 0.0}});
    icon.solid({{0.5, -0.36}, {1.0, 0.0}, {0.5, 0.36}});
}

void nearestIcon(IconPen& icon) {  // a place within its circle
    icon.ring({0, 0}, 0.8);
    icon.dot({0, 0}, 0.28);
    for (const Point& side : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{0, -1}})
        icon.path({{side.x * 0.6, side.y * 0.6}, {side.x, side.y}});
}

void planIcon(IconPen& icon) {  // three places joined by legs
    icon.path({{-0.75, 0.65}, {-0.2, -0.35}, {0.35, 0.3}, {0.75, -0.7}});
    for (const Point& place :
         {Point{-0.75, 0.65}, Point{-0.2, -0.35}, Point{0.35, 0.3}, Point{0.75, -0.7}})
        icon.dot(place, 0.22);
}

void aircraftIcon(IconPen& icon) {  // from above, nose up
    icon.path({{0, -0.9}, {0, 0.85}});
    icon.path({{-0.95, 0.1}, {0, -0.3}, {0.95, 0.1}});
    icon.path({{-0.4, 0.85}, {0, 0.65}, {0.4, 0.85}});
}

void zoomOutIcon(IconPen& icon) {
    icon.ring({0, 0}, 0.88);
    icon.path({{-0.45, 0}, {0.45, 0}});
}

void zoomInIcon(IconPen& icon) {
    zoomOutIcon(icon);
    icon.path({{0, -0.45}, {0, 0.45}});
}

struct Face {
    TouchCommand command{};
    Text word;
    void (*icon)(IconPen& pen) = nullptr;
};

constexpr std::array kFaces{
    Face{TouchCommand::Menu, kInstrumentTexts.touchMenu, menuIcon},
    Face{TouchCommand::Page, kInstrumentTexts.touchPage, pageIcon},
    Face{TouchCommand::DirectTo, kInstrumentTexts.touchDirect, directToIcon},
    Face{TouchCommand::Nearest, kInstrumentTexts.touchNear, nearestIcon},
    Face{TouchCommand::Plan, kInstrumentTexts.touchPlan, planIcon},
    Face{TouchCommand::Aircraft, kInstrumentTexts.touchAircraft, aircraftIcon},
    Face{TouchCommand::ZoomOut, kInstrumentTexts.touchOut, zoomOutIcon},
    Face{TouchCommand::ZoomIn, kInstrumentTexts.touchIn, zoomInIcon},
};

const Face& faceOf(TouchCommand command) {
    return *std::find_if(
        kFaces.begin(), kFaces.end(),
        [command](const Face& face) { return face.command == command; });
}

// Icon beside the word where the button is wide, above it where it is narrow.
void paintFace(Canvas& canvas, const Face& face, const Rect& area, ColorValue color) {
    const bool wide = area.width >= 2.4 * area.height;
    const Font font{
        .height = std::round(std::clamp(area.height * (wide ? 0.36 : 0.27), 11.0, 26.0)),
        .weight = FontWeight::Bold};
    const double icon = std::round(area.height * (wide ? 0.5 : 0.42));
    const TextExtent word = canvas.textMeasure().measure(text(face.word), font);
    const Point middle = area.center();
    TextStyle style{
        .font = font, .color = color, .alignX = AlignX::Center, .alignY = AlignY::Middle};
    Point iconAt{middle.x, area.y + area.height * 0.36};
    Point wordAt{middle.x, area.y + area.height * 0.8};
    if (wide) {
        const double gap = icon * 0.35;
        const double left = middle.x - (icon + gap + word.width) / 2;
        iconAt = {left + icon / 2, middle.y};
        wordAt = {left + icon + gap, middle.y};
        style.alignX = AlignX::Left;
    }
    IconPen pen(canvas, iconAt, icon, color);
    face.icon(pen);
    canvas.text(wordAt, text(face.word), style);
}

}  // namespace

void paintTouchIcon(Canvas& canvas, TouchCommand command, Point center, double size,
                    ColorValue color) {
    IconPen pen(canvas, center, size, color);
    faceOf(command).icon(pen);
}

std::string_view touchWord(TouchCommand command) { return text(faceOf(command).word); }

void TouchBar::paint(Canvas& canvas, std::span<const TouchButton> buttons) const {
    const Rect bar{0, 0, canvas.width(), canvas.height()};
    canvas.rect(bar, Brush{colors_[ColorKey::NavBorder]}, std::nullopt);
    const std::vector<Rect> cells = gridCells(bar, buttons.size(), 1);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const TouchButton& button = buttons[i];
        const Rect& cell = cells[i];
        const bool last = i + 1 == buttons.size();
        const Rect inside{cell.x, cell.y + 1, cell.width - (last ? 0 : 1), cell.height - 1};
        const ColorValue ground =
            colors_[button.pressed ? ColorKey::NavHeaderBackground : ColorKey::NavBackground];
        ColorValue ink = colors_[button.pressed ? ColorKey::NavHeader : ColorKey::NavText];
        if (!button.enabled)
            ink = blended(ink, ground, 0.6);
        canvas.rect(inside, Brush{ground}, std::nullopt);
        paintFace(canvas, faceOf(button.command), inside, ink);
    }
}

}  // namespace korvel
