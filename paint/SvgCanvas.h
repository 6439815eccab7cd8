#pragma once

#include <string>
#include <string_view>

#include "paint/B612Metrics.h"
#include "paint/Canvas.h"

namespace korvel {

/// Writes a picture as SVG: plain line, polyline, polygon, rect, circle and text elements in pixel
/// coordinates, without transforms, colours as "#rrggbb", the same in every locale. Texts stay
/// texts, in the typeface B612 where the viewer has it; they are measured from B612's own widths,
/// so that the layout does not depend on the machine.
class SvgCanvas final : public Canvas {
 public:
    /// Pixels; the picture starts out transparent.
    SvgCanvas(int width, int height) : width_(width), height_(height) {}

    /// The whole document as drawn so far.
    std::string document() const;

    double width() const override { return width_; }
    double height() const override { return height_; }
    const TextMeasure& textMeasure() const override { return metrics_; }

    void line(Point from, Point to, const Pen& pen) override;
    void lines(std::span<const Segment> segments, const Pen& pen) override;
    void polyline(std::span<const Point> corners, const Pen& pen) override;
    void polygon(std::span<const Point> corners, const std::optional<Brush>& fill,
                 const std::optional<Pen>& outline) override;
    void rect(const Rect& area, const std::optional<Brush>& fill,
              const std::optional<Pen>& outline) override;
    void circle(Point center, double radius, const std::optional<Brush>& fill,
                const std::optional<Pen>& outline) override;
    void text(Point anchor, std::string_view text, const TextStyle& style) override;
    /// Each run of equal pixels becomes a rectangle: right, but meant for small pictures only.
    void bitmap(Point topLeft, const Bitmap& bitmap) override;
    /// Turned ones are left out: see wantsShapes().
    void bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) override;
    bool wantsShapes() const override { return true; }

 private:
    void number(std::string_view name, double value);
    void color(std::string_view name, ColorValue value);
    void points(std::span<const Point> points);
    void stroke(const Pen& pen);
    void paint(const std::optional<Brush>& fill, const std::optional<Pen>& outline);

    B612Metrics metrics_;
    int width_;
    int height_;
    std::string body_;
};

}  // namespace korvel
