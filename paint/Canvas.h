#pragma once

// What painters draw on, and the few shapes and looks that they draw with.

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "paint/Color.h"
#include "paint/TextMeasure.h"

namespace korvel {

/// Device-independent pixels, x to the right and y downwards from the canvas's top left corner.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    Point center() const { return {x + width / 2, y + height / 2}; }
    bool contains(Point p) const { return p.x >= x && p.x < right() && p.y >= y && p.y < bottom(); }
    friend bool operator==(const Rect&, const Rect&) = default;
};

struct Segment {
    Point from;
    Point to;
};

enum class PenStyle : std::uint8_t { Solid, Dash, Dot };

struct Pen {
    ColorValue color = 0;
    double width = 1;  ///< pixels
    PenStyle style = PenStyle::Solid;
};

/// A solid fill; `opacity` runs from 0 (nothing) to 1.
struct Brush {
    ColorValue color = 0;
    double opacity = 1;
};

/// Where the anchor point of a text lies within it. Vertically the anchor is the baseline, or the
/// middle between baseline and capital height, or the top of the capitals.
enum class AlignX : std::uint8_t { Left, Center, Right };
enum class AlignY : std::uint8_t { Baseline, Middle, Top };

struct TextStyle {
    Font font;
    ColorValue color = 0;
    AlignX alignX = AlignX::Left;
    AlignY alignY = AlignY::Baseline;
    std::optional<ColorValue> halo{};  ///< a one-pixel rim that keeps a label readable on the map
};

/// A picture of premultiplied 0xAARRGGBB words, row after row from the top, without padding. The
/// pixels belong to the caller and outlive the call.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> pixels;
    bool opaque = false;  ///< every pixel is, which makes copying cheaper
};

/// How a bitmap lies on a canvas: its point `pivot`, in its own pixels, comes to the canvas point
/// `at`, and around that it is turned by `turnDeg` to the right. Its pixels are as small as those
/// of a device with so many of them in one of the canvas.
struct BitmapPlace {
    Point at;
    Point pivot;
    double turnDeg = 0;
    double pixelRatio = 1;
};

class Canvas;

/// A small picture that is drawn many times over, such as the symbol of a place. What `draw` draws
/// follows from the other values alone, so that a canvas may keep the picture and copy it.
struct Stamp {
    void (*draw)(Canvas& canvas, Point center, const Stamp& stamp) = nullptr;
    ColorValue ink = 0;
    ColorValue ground = 0;
    double radius = 0;  ///< pixels
    double reach = 0;   ///< from the centre, nothing is drawn beyond, pixels
    int turnDeg = 0;    ///< of what points somewhere, from up to the right
    int variant = 0;    ///< the meaning is the drawer's own
};

/// What painters draw on. The painters clip lines and polygons to the canvas before they draw:
/// a canvas accepts anything, but pays for what lies outside.
class Canvas {
 public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    virtual double width() const = 0;
    virtual double height() const = 0;
    Rect area() const { return {0, 0, width(), height()}; }
    /// Of the texts that are drawn here; lives as long as the canvas.
    virtual const TextMeasure& textMeasure() const = 0;

    virtual void line(Point from, Point to, const Pen& pen) = 0;
    /// Unconnected segments in one batch: much cheaper than so many calls of line().
    virtual void lines(std::span<const Segment> segments, const Pen& pen) = 0;
    virtual void polyline(std::span<const Point> points, const Pen& pen) = 0;
    /// A closed polygon (even-odd rule), filled when `fill` is set, outlined when `outline` is.
    virtual void polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                         const std::optional<Pen>& outline) = 0;
    virtual void rect(const Rect& area, const std::optional<Brush>& fill,
                      const std::optional<Pen>& outline) = 0;
    virtual void circle(Point center, double radius, const std::optional<Brush>& fill,
                        const std::optional<Pen>& outline) = 0;
    /// One line of UTF-8 text.
    virtual void text(Point anchor, std::string_view text, const TextStyle& style) = 0;
    virtual void bitmap(Point topLeft, const Bitmap& bitmap) = 0;
    /// A bitmap moved and turned under what is drawn on it later.
    virtual void bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) = 0;
    /// The canvas keeps shapes: what could be drawn as a large bitmap is better drawn as polygons.
    virtual bool wantsShapes() const { return false; }
    /// Pixels of the device in one of the canvas: how fine a bitmap may be.
    virtual double pixelRatio() const { return 1; }
    /// The stamp's picture; a canvas that keeps it puts it on whole pixels of the device.
    virtual void stamp(Point center, const Stamp& stamp) { stamp.draw(*this, center, stamp); }
};

}  // namespace korvel
