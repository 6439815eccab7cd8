#include "pages/TapCardBox.h"

#include <algorithm>
#include <cmath>

#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "pages/TouchBar.h"
#include "paint/Clip.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/TextLine.h"

namespace korvel {
namespace {

constexpr double kButtonFloorPx = 48;
constexpr double kLeastWidth = 3 * kButtonFloorPx + 60;
constexpr double kGap = 8;  // to the page's edges, the finger and the aircraft

// In heights of type.
constexpr double kWidth = 24;
constexpr double kMargin = 0.6;
constexpr double kTitle = 2.4;
constexpr double kFigureHeader = 0.8;
constexpr double kFigureValue = 1.35;
constexpr double kFigures = 2.9;
constexpr double kLine = 1.45;
constexpr double kFinger = 1.8;

/// Of the places that are tried across the page each way.
constexpr int kSteps = 24;

double titleHeight(const TapCardSize& size) {
    return std::max(size.buttonPx, std::round(kTitle * size.textPx));
}

double shared(const Rect& a, const Rect& b) {
    const double width = std::min(a.right(), b.right()) - std::max(a.x, b.x);
    const double height = std::min(a.bottom(), b.bottom()) - std::max(a.y, b.y);
    return width > 0 && height > 0 ? width * height : 0;
}

/// The smaller the better: pixels away from the finger, and far more for what is covered.
double costOf(const Rect& card, const TapCardRoom& room, double textPx) {
    constexpr double kCoversAircraft = 1e6;
    constexpr double kCoversFinger = 1e4;
    double cost = distanceTo(card, room.finger);
    if (overlap(card, grown(room.aircraft, kGap)) && room.aircraft.width > 0)
        cost += kCoversAircraft + shared(card, room.aircraft);
    const double finger = kFinger * textPx;
    if (overlap(card, {room.finger.x - finger, room.finger.y - finger, 2 * finger, 2 * finger}))
        cost += kCoversFinger;
    for (const Rect& box : room.boxes)
        cost += shared(card, box);
    return cost;
}

class CardPainter {
 public:
    CardPainter(Canvas& canvas, const ShownCard& card, const MapColorCache& colors)
        : canvas_(canvas),
          view_(card.view),
          layout_(card.area, card.size, !card.view.step.empty()),
          textPx_(card.size.textPx),
          ground_(colors[ColorKey::NavBackground]),
          ink_(colors[ColorKey::NavText]),
          filledInk_(colors[ColorKey::MapInfoText]),
          filledGround_(colors[ColorKey::MapInfoBackground]),
          border_(colors[ColorKey::NavBorder]),
          background_(colors[ColorKey::MapBackground]),
          danger_(colors[ColorKey::MapObstacleDanger]),
          faint_(blended(ink_, ground_, 0.3)) {}

    void paint() {
        if (view_.mark)
            mark(*view_.mark);
        canvas_.rect(layout_.card, Brush{ground_}, Pen{ink_, 2});
        title();
        figures();
        double y = layout_.lines.y;
        for (const std::string& line : view_.lines) {
            y += kLine * textPx_;
            if (y > layout_.lines.bottom() + 1)
                break;
            left(line, {layout_.lines.x, y - kLine * textPx_ / 2}, layout_.lines.width,
                 {.height = textPx_}, ink_);
        }
        for (std::size_t i = 0; i < TapCardView::kButtons; ++i)
            button(view_.buttons[i], layout_.buttons[i], static_cast<CardPart>(i));
    }

 private:
    /// A ring around what is told, which stands under the card's edge where they meet.
    void mark(Point at) {
        const double radius = std::round(1.1 * textPx_);
        canvas_.circle(at, radius, std::nullopt, Pen{ground_, 5});
        canvas_.circle(at, radius, std::nullopt, Pen{ink_, 2});
    }

    void title() {
        const Rect& area = layout_.title;
        const Font large{.height = std::round(kFigureValue * textPx_), .weight = FontWeight::Bold};
        const double gap = 0.6 * textPx_;
        const double y = area.center().y;
        const double right = view_.step.empty() ? area.right() : layout_.next.x;
        const double mark = view_.expired ? expiredWidth() + gap : 0;
        const double used = left(view_.ident, {area.x, y}, right - area.x - mark, large, ink_);
        double x = area.x + used + (used > 0 ? gap : 0);
        if (view_.expired)
            expiredMark({x, y});
        x += mark;
        left(view_.name, {x, y}, right - x, {.height = textPx_}, faint_);
        if (!view_.step.empty())
            next();
    }

    Font expiredFont() const {
        return {.height = std::max(11.0, std::round(0.85 * textPx_)), .weight = FontWeight::Bold};
    }
    double expiredWidth() const {
        const TextMeasure& texts = canvas_.textMeasure();
        return texts.measure(text(kStatusTexts.expired), expiredFont()).width + 0.6 * textPx_;
    }

    /// A word in a frame, so that it does not hang on the colour.
    void expiredMark(Point at) {
        const Font font = expiredFont();
        canvas_.rect({at.x, at.y - 0.75 * font.height, expiredWidth(), 1.5 * font.height},
                     Brush{background_}, Pen{danger_, 2});
        canvas_.text({at.x + 0.3 * textPx_, at.y}, text(kStatusTexts.expired),
                     {.font = font, .color = danger_, .alignY = AlignY::Middle});
    }

    void next() {
        const Rect& area = layout_.next;
        const ColorValue ink = groundOf(area, CardPart::Next, false);
        const double arm = 0.4 * textPx_;
        const Point tip{area.right() - textPx_ * 0.7, area.center().y};
        canvas_.text({tip.x - 0.9 * textPx_, tip.y}, view_.step,
                     {.font = {.height = textPx_, .weight = FontWeight::Bold},
                      .color = ink,
                      .alignX = AlignX::Right,
                      .alignY = AlignY::Middle});
        canvas_.polyline(
            std::array{Point{tip.x - arm, tip.y - arm}, tip, Point{tip.x - arm, tip.y + arm}},
            Pen{ink, 2.5});
    }

    void figures() {
        const Rect& area = layout_.figures;
        const double column = area.width / TapCardView::kFigures;
        const Font small{.height = std::max(11.0, std::round(kFigureHeader * textPx_))};
        const Font value{.height = std::round(kFigureValue * textPx_), .weight = FontWeight::Bold};
        for (std::size_t i = 0; i < TapCardView::kFigures; ++i) {
            const double x = area.x + static_cast<double>(i) * column;
            const double room = column - 0.4 * textPx_;
            left(view_.figures[i].header, {x, area.y + 0.6 * textPx_}, room, small, faint_);
            left(view_.figures[i].value, {x, area.y + 1.85 * textPx_}, room, value, ink_);
        }
    }

    /// The first one is what a thumb looks for: filled.
    void button(const TapCardView::Button& button, const Rect& area, CardPart part) {
        ColorValue ink = groundOf(area, part, part == CardPart::Direct && button.enabled);
        if (!button.enabled)
            ink = blended(ink, ground_, 0.6);
        const bool withIcon = part == CardPart::Direct;
        const double icon = withIcon ? std::round(1.6 * textPx_) : 0;
        const double gap = withIcon ? 0.5 * textPx_ : 0;
        const Font font{.height = std::round(1.15 * textPx_), .weight = FontWeight::Bold};
        const double wide = canvas_.textMeasure().measure(button.word, font).width;
        const double share =
            std::min(1.0, (area.width - icon - gap - textPx_) / std::max(wide, 1.0));
        const Point middle = area.center();
        const double begin = middle.x - (icon + gap + wide * share) / 2;
        if (withIcon)
            paintTouchIcon(canvas_, TouchCommand::DirectTo, {begin + icon / 2, middle.y}, icon,
                           ink);
        canvas_.text({begin + icon + gap, middle.y}, button.word,
                     {.font = {.height = font.height * share, .weight = font.weight},
                      .color = ink,
                      .alignY = AlignY::Middle});
    }

    /// What the words of a part are written in. Where the keys are has a thick frame.
    ColorValue groundOf(const Rect& area, CardPart part, bool primary) {
        const bool filled = primary != (view_.pressed == part);
        const bool focus = view_.focus == part;
        canvas_.rect(area, Brush{filled ? filledGround_ : ground_},
                     Pen{focus ? ink_ : border_, focus ? 4.0 : 1.0});
        return filled ? filledInk_ : ink_;
    }

    /// Cut at a letter where the room ends; the width that it takes.
    double left(std::string_view words, Point at, double room, const Font& font, ColorValue color) {
        const TextMeasure& texts = canvas_.textMeasure();
        const std::string shown = fittingText(texts, std::string(words), font, room);
        if (!shown.empty())
            canvas_.text(at, shown, {.font = font, .color = color, .alignY = AlignY::Middle});
        return texts.measure(shown, font).width;
    }

    Canvas& canvas_;
    const TapCardView& view_;
    TapCardLayout layout_;
    double textPx_;
    ColorValue ground_;
    ColorValue ink_;
    ColorValue filledInk_;
    ColorValue filledGround_;
    ColorValue border_;
    ColorValue background_;
    ColorValue danger_;
    ColorValue faint_;
};

}  // namespace

double TapCardSize::height() const {
    const double inside = (kFigures + kLine * static_cast<double>(lines)) * textPx;
    return titleHeight(*this) + std::round(inside) + buttonPx + std::round(2 * kMargin * textPx);
}

TapCardSize tapCardSize(const TapCardRoom& room, double textPx, double buttonPx,
                        std::size_t lines) {
    TapCardSize size{.textPx = textPx,
                     .buttonPx = std::max(buttonPx, kButtonFloorPx),
                     .width = std::min(std::round(kWidth * textPx), room.width - 2 * kGap),
                     .lines = lines};
    while (size.lines > 0 && size.height() > room.height - 2 * kGap)
        --size.lines;
    const Rect& aircraft = room.aircraft;
    if (!(aircraft.width > 0))
        return size;
    // A page too low to have it above or below the aircraft has it beside.
    const double tallest = std::max(aircraft.y, room.height - aircraft.bottom()) - 2 * kGap;
    const double widest = std::max(aircraft.x, room.width - aircraft.right()) - 2 * kGap;
    if (size.height() > tallest)
        size.width = std::max(kLeastWidth, std::min(size.width, std::floor(widest)));
    return size;
}

Rect placeTapCard(const TapCardRoom& room, const TapCardSize& size) {
    const double right = std::max(0.0, room.width - size.width - 2 * kGap);
    const double down = std::max(0.0, room.height - size.height() - 2 * kGap);
    Rect best{kGap, kGap, size.width, size.height()};
    double least = costOf(best, room, size.textPx);
    for (int row = 0; row <= kSteps; ++row) {
        for (int column = 0; column <= kSteps; ++column) {
            const Rect tried{std::round(kGap + right * column / kSteps),
                             std::round(kGap + down * row / kSteps), size.width, size.height()};
            const double cost = costOf(tried, room, size.textPx);
            if (cost < least) {
                least = cost;
                best = tried;
            }
        }
    }
    return best;
}

TapCardLayout::TapCardLayout(const Rect& whole, const TapCardSize& size, bool hasNext)
    : card(whole) {
    const double margin = std::round(kMargin * size.textPx);
    const double width = card.width - 2 * margin;
    title = {card.x + margin, card.y, width, titleHeight(size)};
    if (hasNext) {
        const double wide = std::max(size.buttonPx, std::round(4 * size.textPx));
        next = {card.right() - wide, card.y, wide, title.height};
    }
    const double buttonsAt = card.bottom() - margin - size.buttonPx;
    figures = {title.x, title.bottom(), width, std::round(kFigures * size.textPx)};
    lines = {title.x, figures.bottom(), width, buttonsAt - figures.bottom()};
    const double gap = std::round(margin / 2);
    const double wide = (width - 2 * gap) / TapCardView::kButtons;
    for (std::size_t i = 0; i < buttons.size(); ++i)
        buttons[i] = {std::round(title.x + static_cast<double>(i) * (wide + gap)), buttonsAt,
                      std::floor(wide), size.buttonPx};
}

std::optional<CardPart> TapCardLayout::partAt(Point finger) const {
    if (next.contains(finger))
        return CardPart::Next;
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i].contains(finger))
            return static_cast<CardPart>(i);
    return std::nullopt;
}

void paintTapCard(Canvas& canvas, const ShownCard& card, const MapColorCache& colors) {
    CardPainter(canvas, card, colors).paint();
}

}  // namespace korvel
