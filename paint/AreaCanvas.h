#pragma once

// A part of a canvas as a canvas of its own.

#include <optional>
#include <span>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

/// Measures texts in pixels of another size.
class ScaledTextMeasure final : public TextMeasure {
 public:
    /// `scale` pixels of `whole`, which must outlive this, are one here.
    ScaledTextMeasure(const TextMeasure& whole, double scale) : whole_(whole), scale_(scale) {}

    TextExtent measure(std::string_view text, const Font& font) const override;
    /// The font in the other one's pixels.
    Font scaled(const Font& font) const {
        return {font.height * scale_, font.weight, font.monospaced};
    }

 private:
    const TextMeasure& whole_;
    double scale_;
};

/// A part of another canvas as a canvas of its own: painters fill the whole canvas that they are
/// given, and this puts several of them side by side on one. Its own pixels may be larger or
/// smaller than the other canvas's; only bitmaps are not scaled. Does not clip: what hangs over an
/// edge is drawn there, so paint the neighbours afterwards. The other canvas must outlive it.
class AreaCanvas final : public Canvas {
 public:
    /// `area` on the other canvas; `scale` of its pixels are one here.
    AreaCanvas(Canvas& whole, const Rect& area, double scale = 1)
        : whole_(whole), area_(area), scale_(scale), texts_(whole.textMeasure(), scale) {}

    double width() const override { return area_.width / scale_; }
    double height() const override { return area_.height / scale_; }
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
    bool wantsShapes() const override { return whole_.wantsShapes(); }
    double pixelRatio() const override { return whole_.pixelRatio() * scale_; }

 private:
    Point moved(Point point) const {
        return {area_.x + point.x * scale_, area_.y + point.y * scale_};
    }
    std::vector<Point> moved(std::span<const Point> points) const;
    std::optional<Pen> scaled(const std::optional<Pen>& pen) const;
    Pen scaled(const Pen& pen) const { return {pen.color, pen.width * scale_, pen.style}; }

    Canvas& whole_;
    Rect area_;
    double scale_;
    ScaledTextMeasure texts_;
};

}  // namespace korvel
