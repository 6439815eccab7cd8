#pragma once

#include "display/Canvas.h"

namespace korvel {

/// A part of another canvas as a canvas of its own: painters fill the whole canvas that they are
/// given, and this puts several of them side by side on one. Does not clip: what hangs over an
/// edge is drawn there, so paint the neighbours afterwards. The other canvas must outlive it.
class AreaCanvas final : public Canvas {
 public:
    AreaCanvas(Canvas& whole, const Rect& area) : whole_(whole), area_(area) {}

    double width() const override { return area_.width; }
    double height() const override { return area_.height; }

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
    TextExtent measure(std::string_view text, const Font& font) const override;
    void bitmap(Point topLeft, const Bitmap& bitmap) override;

 private:
    Point moved(Point point) const { return {point.x + area_.x, point.y + area_.y}; }

    Canvas& whole_;
    Rect area_;
};

}  // namespace korvel
