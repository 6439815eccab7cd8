#include "qtpaint/QtCanvas.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QImage>
#include <QLineF>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>

namespace korvel {
namespace {

// A wide line is stroked in pieces: the rasterizer takes four times as long over a whole one.
constexpr std::size_t kPiecePoints = 16;
// Up to this width a polyline is drawn as lines that stick out by half a width: nobody sees the
// joints, and it takes half the time.
constexpr double kWidestLoose = 3;
// Smoothing a translucent fill costs four times the fill; on a large area nobody sees its edge.
constexpr double kLargestSmoothedFill = 96;

QPointF toQt(Point point) { return {point.x, point.y}; }
QLineF toQt(const Segment& segment) { return {toQt(segment.from), toQt(segment.to)}; }

QColor toQColor(const Brush& brush) {
    QColor color = korvel::toQColor(brush.color);
    color.setAlphaF(static_cast<float>(std::clamp(brush.opacity, 0.0, 1.0)));
    return color;
}

Qt::PenStyle toQt(PenStyle style) {
    switch (style) {
        case PenStyle::Dash:
            return Qt::DashLine;
        case PenStyle::Dot:
            return Qt::DotLine;
        case PenStyle::Solid:
            break;
    }
    return Qt::SolidLine;
}

bool liesAlongAxis(Point from, Point to) { return from.x == to.x || from.y == to.y; }

bool isLarge(std::span<const Point> points) {
    const auto [left, right] = std::minmax_element(
        points.begin(), points.end(), [](Point a, Point b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](Point a, Point b) { return a.y < b.y; });
    return right->x - left->x > kLargestSmoothedFill || bottom->y - top->y > kLargestSmoothedFill;
}

/// The bitmap's own pixels; null when they are not as many as it says.
QImage viewOf(const Bitmap& bitmap) {
    if (bitmap.width <= 0 || bitmap.height <= 0)
        return {};
    const auto words =
        static_cast<std::size_t>(bitmap.width) * static_cast<std::size_t>(bitmap.height);
    if (bitmap.pixels.size() < words)
        return {};
    const auto bytes = std::as_bytes(bitmap.pixels);
    return {reinterpret_cast<const uchar*>(bytes.data()), bitmap.width, bitmap.height,
            bitmap.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied};
}

}  // namespace

QColor toQColor(ColorValue color) {
    return {static_cast<int>(RedOf(color)), static_cast<int>(GreenOf(color)),
            static_cast<int>(BlueOf(color))};
}

QtCanvas::QtCanvas(QPainter& painter, LabelCache& labels, const Rect& area)
    : painter_(painter),
      labels_(labels),
      texts_(labels.fonts()),
      area_(area),
      ratio_(painter.device()->devicePixelRatioF()) {
    painter_.save();
    painter_.translate(area_.x, area_.y);
    painter_.setClipRect(QRectF(0, 0, area_.width, area_.height), Qt::IntersectClip);
}

QtCanvas::~QtCanvas() { painter_.restore(); }

void QtCanvas::smooth(bool on) {
    if (smoothing_ == on)
        return;
    smoothing_ = on;
    painter_.setRenderHint(QPainter::Antialiasing, on);
}

void QtCanvas::use(const Pen& pen, Qt::PenJoinStyle join, Qt::PenCapStyle cap) {
    painter_.setPen(QPen(toQColor(pen.color), pen.width, toQt(pen.style), cap, join));
}

void QtCanvas::use(const std::optional<Brush>& fill, const std::optional<Pen>& outline) {
    painter_.setBrush(fill ? QBrush(toQColor(*fill)) : QBrush(Qt::NoBrush));
    if (outline)
        use(*outline, Qt::MiterJoin, Qt::FlatCap);
    else
        painter_.setPen(Qt::NoPen);
}

double QtCanvas::toDevicePixel(double position, double origin) const {
    return std::round((position + origin) * ratio_) / ratio_ - origin;
}

void QtCanvas::line(Point from, Point to, const Pen& pen) {
    smooth(!liesAlongAxis(from, to));
    use(pen, Qt::MiterJoin, Qt::FlatCap);
    painter_.drawLine(toQt(from), toQt(to));
}

void QtCanvas::lines(std::span<const Segment> segments, const Pen& pen) {
    if (segments.empty())
        return;
    smooth(true);
    use(pen, Qt::MiterJoin, Qt::FlatCap);
    std::vector<QLineF> batch(segments.size());
    std::transform(segments.begin(), segments.end(), batch.begin(),
                   [](const Segment& segment) { return toQt(segment); });
    painter_.drawLines(batch.data(), static_cast<int>(batch.size()));
}

void QtCanvas::polyline(std::span<const Point> points, const Pen& pen) {
    if (points.size() < 2)
        return;
    const bool isSolid = pen.width * ratio_ > 1 && pen.style == PenStyle::Solid;
    if (isSolid && pen.width <= kWidestLoose)
        return looseLines(points, pen);
    smooth(true);
    use(pen, isSolid ? Qt::RoundJoin : Qt::BevelJoin, Qt::RoundCap);
    std::vector<QPointF> corners(points.size());
    std::transform(points.begin(), points.end(), corners.begin(), [](Point p) { return toQt(p); });
    // The pattern of a broken line must not start anew with each piece.
    const std::size_t longest = isSolid ? kPiecePoints : corners.size();
    for (std::size_t first = 0; first + 1 < corners.size(); first += longest - 1)
        painter_.drawPolyline(&corners[first],
                              static_cast<int>(std::min(longest, corners.size() - first)));
}

void QtCanvas::looseLines(std::span<const Point> points, const Pen& pen) {
    smooth(true);
    use(pen, Qt::BevelJoin, Qt::SquareCap);
    std::vector<QLineF> batch(points.size() - 1);
    for (std::size_t i = 0; i < batch.size(); ++i)
        batch[i] = {toQt(points[i]), toQt(points[i + 1])};
    painter_.drawLines(batch.data(), static_cast<int>(batch.size()));
}

void QtCanvas::polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                       const std::optional<Pen>& outline) {
    if (points.size() < 3)
        return;
    QPolygonF corners(static_cast<qsizetype>(points.size()));
    std::transform(points.begin(), points.end(), corners.begin(), [](Point p) { return toQt(p); });
    if (fill && fill->opacity < 1 && isLarge(points)) {
        smooth(false);
        use(fill, std::nullopt);
        painter_.drawPolygon(corners, Qt::OddEvenFill);
        if (!outline)
            return;
        use(std::nullopt, outline);
    } else {
        use(fill, outline);
    }
    smooth(true);
    painter_.drawPolygon(corners, Qt::OddEvenFill);
}

void QtCanvas::rect(const Rect& area, const std::optional<Brush>& fill,
                    const std::optional<Pen>& outline) {
    smooth(false);
    const QPointF topLeft(toDevicePixel(area.x, area_.x), toDevicePixel(area.y, area_.y));
    const QPointF bottomRight(toDevicePixel(area.right(), area_.x),
                              toDevicePixel(area.bottom(), area_.y));
    const QRectF onPixels(topLeft, bottomRight);
    if (fill)
        painter_.fillRect(onPixels, toQColor(*fill));
    if (outline) {
        use(std::nullopt, outline);
        painter_.drawRect(onPixels);
    }
}

void QtCanvas::circle(Point center, double radius, const std::optional<Brush>& fill,
                      const std::optional<Pen>& outline) {
    smooth(true);
    use(fill, outline);
    painter_.drawEllipse(toQt(center), radius, radius);
}

void QtCanvas::text(Point anchor, std::string_view text, const TextStyle& style) {
    if (text.empty())
        return;
    const FontFace& face = labels_.fonts().face(style.font);
    double x = anchor.x;
    if (style.alignX != AlignX::Left)
        x -= face.advance(text) * (style.alignX == AlignX::Center ? 0.5 : 1.0);
    double baseline = anchor.y;
    if (style.alignY != AlignY::Baseline)
        baseline += face.capHeight * (style.alignY == AlignY::Middle ? 0.5 : 1.0);

    put({x, baseline}, labels_.get(text, style, ratio_));
}

void QtCanvas::put(Point origin, const Label& picture) {
    painter_.drawImage(QPointF(toDevicePixel(origin.x, area_.x) + picture.left,
                               toDevicePixel(origin.y, area_.y) + picture.top),
                       picture.image);
}

void QtCanvas::stamp(Point center, const Stamp& stamp) { put(center, labels_.get(stamp, ratio_)); }

void QtCanvas::bitmap(Point topLeft, const Bitmap& bitmap) {
    if (const QImage image = viewOf(bitmap); !image.isNull())
        painter_.drawImage(
            QPointF(toDevicePixel(topLeft.x, area_.x), toDevicePixel(topLeft.y, area_.y)), image);
}

void QtCanvas::bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) {
    const QImage image = viewOf(bitmap);
    if (image.isNull() || !(place.pixelRatio > 0))
        return;
    const double share = 1 / place.pixelRatio;
    const bool upright = place.turnDeg == 0 && place.pixelRatio == ratio_;
    painter_.save();
    if (upright) {
        // On whole pixels of the device it is copied as it is.
        painter_.translate(toDevicePixel(place.at.x - place.pivot.x * share, area_.x),
                           toDevicePixel(place.at.y - place.pivot.y * share, area_.y));
        painter_.scale(share, share);
    } else {
        painter_.translate(place.at.x, place.at.y);
        painter_.rotate(place.turnDeg);
        painter_.scale(share, share);
        painter_.translate(-place.pivot.x, -place.pivot.y);
        painter_.setRenderHint(QPainter::SmoothPixmapTransform, true);
    }
    painter_.drawImage(QPointF(0, 0), image);
    painter_.restore();
}

}  // namespace korvel
