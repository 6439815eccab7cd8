#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paint/B612Metrics.h"
#include "paint/Canvas.h"

namespace korvel {

/// Keeps what was drawn instead of drawing it, so that a picture can be examined as numbers.
/// Texts measure as on the screen.
class RecordingCanvas final : public Canvas {
 public:
    enum class Kind : std::uint8_t { Line, Polyline, Polygon, Rect, Circle, Text, Bitmap };

    /// One drawn element; what a kind does not have keeps its default.
    struct Element {
        Kind kind = Kind::Line;
        std::vector<Point> points;  ///< corners; one point for centre, anchor, top left corner
        double radius = 0;
        Rect area;  ///< bounding box, without pens and halos
        std::optional<Brush> fill;
        std::optional<Pen> pen;
        std::string text;
        TextStyle style;
    };

    RecordingCanvas(double width, double height) : width_(width), height_(height) {}

    const std::vector<Element>& elements() const { return elements_; }
    /// The first element with exactly this text; null when there is none.
    const Element* findText(std::string_view text) const;
    /// All texts in drawing order, each followed by a line feed.
    std::string texts() const;
    void clear() { elements_.clear(); }

    double width() const override { return width_; }
    double height() const override { return height_; }
    const TextMeasure& textMeasure() const override { return metrics_; }

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

 private:
    Element& add(Kind kind, std::span<const Point> points);

    B612Metrics metrics_;
    double width_;
    double height_;
    std::vector<Element> elements_;
};

}  // namespace korvel
