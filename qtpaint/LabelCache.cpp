#include "qtpaint/LabelCache.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include <QColor>
#include <QPainter>

#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

constexpr double kMargin = 2;  // the halo, and letters that lean out of their advance

template <class Number>
void append(std::string& key, Number number) {
    const auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(number);
    key.append(bytes.data(), bytes.size());
}

/// Everything that makes a label look different; the anchor does not.
void writeKey(std::string& key, std::string_view text, const TextStyle& style, double ratio) {
    key.assign(text);
    key.push_back('\0');
    append(key, style.font.height);
    append(key, ratio);
    append(key, style.color);
    append(key, style.halo.value_or(0));
    key.push_back(style.font.weight == FontWeight::Bold ? 'b' : 'r');
    key.push_back(style.font.monospaced ? 'm' : 'p');
    key.push_back(style.halo ? 'h' : '-');
}

/// The same for a symbol. No text is empty, so the two never have the same key.
void writeKey(std::string& key, const Stamp& stamp, double ratio) {
    key.assign(1, '\0');
    append(key, stamp.draw);
    append(key, stamp.ink);
    append(key, stamp.ground);
    append(key, stamp.radius);
    append(key, stamp.reach);
    append(key, stamp.turnDeg);
    append(key, stamp.variant);
    append(key, ratio);
}

QImage clearImage(double width, double height, double ratio) {
    QImage image(static_cast<int>(std::ceil(width * ratio)),
                 static_cast<int>(std::ceil(height * ratio)), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

/// The largest of each value and its `reach` neighbours on either side, in a row of `count` values
/// that lie `stride` apart.
void spreadMaximum(const std::uint8_t* from, std::uint8_t* to, std::size_t count,
                   std::size_t stride, std::size_t reach) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint8_t highest = 0;
        const std::size_t last = std::min(count - 1, i + reach);
        for (std::size_t near = i - std::min(i, reach); near <= last; ++near)
            highest = std::max(highest, from[near * stride]);
        to[i * stride] = highest;
    }
}

/// Lays a rim of `reach` pixels in the halo's colour under what is drawn on `image`. The rim is the
/// drawing's own coverage spread to its neighbours: no outline has to be stroked.
void addHalo(QImage& image, ColorValue halo, std::size_t reach) {
    const auto width = static_cast<std::size_t>(image.width());
    const auto height = static_cast<std::size_t>(image.height());
    std::vector<std::uint8_t> cover(width * height);
    std::vector<std::uint8_t> spread(cover.size());
    const std::span words(reinterpret_cast<std::uint32_t*>(image.bits()), cover.size());
    std::transform(words.begin(), words.end(), cover.begin(),
                   [](std::uint32_t word) { return static_cast<std::uint8_t>(word >> 24U); });
    for (std::size_t y = 0; y < height; ++y)
        spreadMaximum(&cover[y * width], &spread[y * width], width, 1, reach);
    for (std::size_t x = 0; x < width; ++x)
        spreadMaximum(&spread[x], &cover[x], height, width, reach);

    for (std::size_t i = 0; i < words.size(); ++i) {
        // The halo shows through where the text does not cover it; all values are premultiplied.
        const std::uint32_t under = cover[i] * (255U - (words[i] >> 24U)) / 255U;
        const std::uint32_t rim = under << 24U | RedOf(halo) * under / 255U << 16U |
                                  GreenOf(halo) * under / 255U << 8U | BlueOf(halo) * under / 255U;
        words[i] += rim;
    }
}

}  // namespace

const Label& LabelCache::get(std::string_view text, const TextStyle& style, double ratio) {
    writeKey(key_, text, style, ratio);
    return getByKey([&] { return render(text, style, ratio); });
}

const Label& LabelCache::get(const Stamp& stamp, double ratio) {
    writeKey(key_, stamp, ratio);
    return getByKey([&] { return render(stamp, ratio); });
}

template <class Render>
const Label& LabelCache::getByKey(Render render) {
    if (const auto found = fresh_.find(key_); found != fresh_.end())
        return found->second;

    const std::string key = key_;  // a symbol may have letters of its own
    if (freshBytes_ > kGenerationBytes) {
        aged_ = std::exchange(fresh_, {});
        agedBytes_ = std::exchange(freshBytes_, 0);
    }
    Label label;
    if (auto kept = aged_.extract(key); kept) {
        label = std::move(kept.mapped());
        agedBytes_ -= static_cast<std::size_t>(label.image.sizeInBytes());
    } else {
        label = render();
    }
    freshBytes_ += static_cast<std::size_t>(label.image.sizeInBytes());
    return fresh_.emplace(key, std::move(label)).first->second;
}

Label LabelCache::render(std::string_view text, const TextStyle& style, double ratio) {
    const FontFace& face = fonts_.face(style.font);
    const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    const double ascent = std::ceil(face.metrics.ascent()) + kMargin;
    const double width = std::ceil(face.advance(text)) + 2 * kMargin;
    const double height = ascent + std::ceil(face.metrics.descent()) + kMargin;

    Label label{clearImage(width, height, ratio), -kMargin, -ascent};
    QPainter painter(&label.image);
    painter.setFont(face.font);
    painter.setPen(toQColor(style.color));
    painter.drawText(QPointF(kMargin, ascent), string);
    painter.end();
    if (style.halo)
        addHalo(label.image, *style.halo,
                static_cast<std::size_t>(std::max(1L, std::lround(ratio))));
    return label;
}

Label LabelCache::render(const Stamp& stamp, double ratio) {
    const double reach = std::ceil(stamp.reach);
    Label label{clearImage(2 * reach, 2 * reach, ratio), -reach, -reach};
    QPainter painter(&label.image);
    QtCanvas canvas(painter, *this, {0, 0, 2 * reach, 2 * reach});
    stamp.draw(canvas, {reach, reach}, stamp);
    return label;
}

}  // namespace korvel
