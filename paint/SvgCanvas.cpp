#include "paint/SvgCanvas.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace korvel {
namespace {

// A hundredth of a pixel is finer than any raster shows.
std::string toText(double value) {
    double hundredths = std::isfinite(value) ? std::round(value * 100) : 0;
    if (hundredths == 0)
        hundredths = 0;              // not "-0"
    std::array<char, 400> buffer{};  // the largest number without an exponent
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), hundredths / 100,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

std::string toText(ColorValue color) {
    constexpr std::string_view kHex = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {RedOf(color), GreenOf(color), BlueOf(color)})
        for (const unsigned digit : {part >> 4U, part & 0xFU})
            text += kHex[digit];
    return text;
}

// Text content for XML. Control characters have no place in it, even escaped.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text)
        if (letter == '&')
            result += "&amp;";
        else if (letter == '<')
            result += "&lt;";
        else if (letter == '>')
            result += "&gt;";
        else
            result += static_cast<unsigned char>(letter) < 0x20 ? ' ' : letter;
    return result;
}

}  // namespace

std::string SvgCanvas::document() const {
    const std::string width = std::to_string(width_);
    const std::string height = std::to_string(height_);
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n"
           R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" +
           width + R"(" height=")" + height + R"(" viewBox="0 0 )" + width + " " + height +
           R"(" font-family="Korvel B612, B612, sans-serif">)" + "\n" + body_ + "</svg>\n";
}

void SvgCanvas::number(std::string_view name, double value) {
    body_.append(" ").append(name).append("=\"").append(toText(value)).append("\"");
}

void SvgCanvas::color(std::string_view name, ColorValue value) {
    body_.append(" ").append(name).append("=\"").append(toText(value)).append("\"");
}

void SvgCanvas::points(std::span<const Point> points) {
    body_ += " points=\"";
    for (std::size_t i = 0; i < points.size(); ++i)
        body_.append(i == 0 ? "" : " ")
            .append(toText(points[i].x))
            .append(",")
            .append(toText(points[i].y));
    body_ += "\"";
}

void SvgCanvas::stroke(const Pen& pen) {
    color("stroke", pen.color);
    number("stroke-width", pen.width);
    if (pen.style == PenStyle::Dash)
        body_ +=
            " stroke-dasharray=\"" + toText(4 * pen.width) + "," + toText(2 * pen.width) + "\"";
    if (pen.style == PenStyle::Dot)
        body_ += " stroke-dasharray=\"" + toText(pen.width) + "," + toText(2 * pen.width) + "\"";
}

void SvgCanvas::paint(const std::optional<Brush>& fill, const std::optional<Pen>& outline) {
    if (fill)
        color("fill", fill->color);
    else
        body_ += " fill=\"none\"";
    if (fill && fill->opacity < 1)
        number("fill-opacity", fill->opacity);
    if (outline)
        stroke(*outline);
}

void SvgCanvas::line(Point from, Point to, const Pen& pen) {
    body_ += "<line";
    number("x1", from.x);
    number("y1", from.y);
    number("x2", to.x);
    number("y2", to.y);
    stroke(pen);
    body_ += "/>\n";
}

void SvgCanvas::lines(std::span<const Segment> segments, const Pen& pen) {
    for (const Segment& segment : segments)
        line(segment.from, segment.to, pen);
}

void SvgCanvas::polyline(std::span<const Point> corners, const Pen& pen) {
    if (corners.size() < 2)
        return;
    body_ += "<polyline";
    points(corners);
    body_ += R"( fill="none" stroke-linejoin="round" stroke-linecap="round")";
    stroke(pen);
    body_ += "/>\n";
}

void SvgCanvas::polygon(std::span<const Point> corners, const std::optional<Brush>& fill,
                        const std::optional<Pen>& outline) {
    if (corners.size() < 3)
        return;
    body_ += "<polygon";
    points(corners);
    body_ += " fill-rule=\"evenodd\"";
    paint(fill, outline);
    body_ += "/>\n";
}

void SvgCanvas::rect(const Rect& area, const std::optional<Brush>& fill,
                     const std::optional<Pen>& outline) {
    body_ += "<rect";
    number("x", area.x);
    number("y", area.y);
    number("width", area.width);
    number("height", area.height);
    paint(fill, outline);
    body_ += "/>\n";
}

void SvgCanvas::circle(Point center, double radius, const std::optional<Brush>& fill,
                       const std::optional<Pen>& outline) {
    body_ += "<circle";
    number("cx", center.x);
    number("cy", center.y);
    number("r", radius);
    paint(fill, outline);
    body_ += "/>\n";
}

void SvgCanvas::text(Point anchor, std::string_view text, const TextStyle& style) {
    if (text.empty())
        return;
    const double capHeight = metrics_.measure("", style.font).capHeight;
    double baseline = anchor.y;
    if (style.alignY != AlignY::Baseline)
        baseline += capHeight * (style.alignY == AlignY::Middle ? 0.5 : 1.0);
    body_ += "<text";
    number("x", anchor.x);
    number("y", baseline);
    number("font-size", style.font.height);
    if (style.alignX != AlignX::Left)
        body_ +=
            style.alignX == AlignX::Center ? R"( text-anchor="middle")" : R"( text-anchor="end")";
    if (style.font.weight == FontWeight::Bold)
        body_ += R"( font-weight="bold")";
    if (style.font.monospaced)
        body_ += R"( font-family="Korvel B612 Mono, B612 Mono, monospace")";
    color("fill", style.color);
    if (style.halo) {
        body_ += R"( paint-order="stroke" stroke-linejoin="round")";
        stroke({.color = *style.halo, .width = 2});
    }
    body_.append(">").append(escaped(text)).append("</text>\n");
}

void SvgCanvas::bitmap(Point topLeft, const Bitmap& bitmap) {
    if (bitmap.width <= 0 || bitmap.height <= 0)
        return;
    const auto width = static_cast<std::size_t>(bitmap.width);
    const auto height = static_cast<std::size_t>(bitmap.height);
    if (bitmap.pixels.size() / width < height)
        return;
    for (std::size_t row = 0; row < height; ++row) {
        const auto pixels = bitmap.pixels.subspan(row * width, width);
        for (std::size_t first = 0, last = 0; first < width; first = last) {
            while (last < width && pixels[last] == pixels[first])
                ++last;
            const double opacity = (pixels[first] >> 24U) / 255.0;
            if (opacity == 0)
                continue;
            const auto straight = [&](unsigned shift) {
                return static_cast<unsigned>(
                    std::lround(((pixels[first] >> shift) & 0xFFU) / opacity));
            };
            rect({topLeft.x + static_cast<double>(first), topLeft.y + static_cast<double>(row),
                  static_cast<double>(last - first), 1},
                 Brush{Rgb(straight(16), straight(8), straight(0)), opacity}, std::nullopt);
        }
    }
}

void SvgCanvas::bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) {
    if (place.turnDeg == 0 && place.pixelRatio == 1)
        this->bitmap({place.at.x - place.pivot.x, place.at.y - place.pivot.y}, bitmap);
}

}  // namespace korvel
