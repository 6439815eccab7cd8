#pragma once

#include <optional>
#include <span>
#include <string_view>

#include <QColor>
#include <QPainter>

#include "paint/Canvas.h"
#include "qtpaint/LabelCache.h"
#include "qtpaint/QtTextMeasure.h"

namespace korvel {

QColor toQColor(ColorValue color);

/// Draws on a part of whatever a QPainter draws on: `area` of the painter's device becomes the
/// canvas, with its top left corner as origin, and clips what is drawn. The painter is given back
/// as it was. Fast on premultiplied ARGB32 and RGB32 rasters.
///
/// Edges along the axes (lines, rectangles) are put on whole device pixels and stay crisp; all
/// others are smoothed.
class QtCanvas final : public Canvas {
 public:
    QtCanvas(QPainter& painter, LabelCache& labels, const Rect& area);
    ~QtCanvas() override;
    QtCanvas(const QtCanvas&) = delete;
    QtCanvas& operator=(const QtCanvas&) = delete;

    double width() const override { return area_.width; }
    double height() const override { return area_.height; }
    const TextMeasure& textMeasure() const override { return texts_; }

    void line(Point from, Point to, const Pen& pen) override;
    void lines(std::span<const Segment> segments, const Pen& pen) override;
    void polyline(std::span<const Point> points, const Pen& pen) override;
    void polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                 const std::optional<Pen>& outline) override;
    void rect(const Rect& area, const std::optional<Brush>& fill,
              const std::optional<Pen>& outline) override;
    void circle(Point center, double radius, const std::optional<Brush>& fill,
                const std::optional<Pen>& outline) override;
    void text(Point anchor, std::string_view text, const TextStyle& style) override;
    void bitmap(Point topLeft, const Bitmap& bitmap) override;
    void bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) override;
    double pixelRatio() const override { return ratio_; }
    void stamp(Point center, const Stamp& stamp) override;

 private:
    void put(Point origin, const Label& picture);
    void use(const Pen& pen, Qt::PenJoinStyle join, Qt::PenCapStyle cap);
    void use(const std::optional<Brush>& fill, const std::optional<Pen>& outline);
    void looseLines(std::span<const Point> points, const Pen& pen);
    void smooth(bool on);
    double toDevicePixel(double position, double origin) const;

    QPainter& painter_;
    LabelCache& labels_;
    QtTextMeasure texts_;
    Rect area_;
    double ratio_;
    std::optional<bool> smoothing_;
};

}  // namespace korvel
