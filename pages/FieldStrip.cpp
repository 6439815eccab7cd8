#include "pages/FieldStrip.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "config/Text.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr double kGap = 3;            // between the cells
constexpr double kPadding = 6;        // beside the value
constexpr double kUnitShare = 0.46;   // of the value's type size
constexpr double kUnitGap = 0.12;     // of the value's type size
constexpr double kNarrowCell = 160;   // along a row
constexpr double kLowCell = 80;       // in a column
constexpr double kTallestCell = 150;  // in a column, where there is more room than use
constexpr double kLargestType = 400;
constexpr double kCapShare = 0.62;       // of the height below the header that capitals fill
constexpr double kCapShareOfLine = 0.3;  // the same for each of two lines
constexpr std::string_view kWidestUnit = "mph";

Font valueFont(double height) { return {.height = height, .weight = FontWeight::Bold}; }
Font unitFont(double valueHeight) { return {.height = std::max(11.0, valueHeight * kUnitShare)}; }

// The width of the field's widest text in type one pixel high, unit included.
double naturalWidth(const TextMeasure& texts, const NavField& field) {
    constexpr double kSample = 100;
    double width = texts.measure(field.widest, valueFont(kSample)).width;
    if (field.lines == 1)
        width += texts.measure(kWidestUnit, unitFont(kSample)).width + kSample * kUnitGap;
    return width / kSample;
}

// The parts of one cell, without the gap to the next ones.
struct CellParts {
    Rect header;
    Rect value;
};

CellParts partsOf(const Rect& cell) {
    const double headerHeight = std::clamp(std::round(cell.height * 0.29), 15.0, 30.0);
    const Rect inside{cell.x, cell.y, cell.width - kGap, cell.height - kGap};
    return {{inside.x, inside.y, inside.width, headerHeight},
            {inside.x, inside.y + headerHeight, inside.width, inside.height - headerHeight}};
}

// The type sizes of a strip: one for all values of one line, one for those of two.
struct ValueSizes {
    double oneLine = kLargestType;
    double twoLines = kLargestType;
};

// The largest type in which the widest text of every field fits its cell.
ValueSizes fittingSizes(const TextMeasure& texts, std::span<const NavFieldId> fields,
                        std::span<const Rect> cells) {
    const double capPerHeight = texts.measure("0", valueFont(100)).capHeight / 100;
    ValueSizes sizes;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const NavField& field = navField(fields[i]);
        const Rect value = partsOf(cells[i]).value;
        const double byWidth =
            std::floor((value.width - 2 * kPadding) / naturalWidth(texts, field));
        double& size = field.lines == 1 ? sizes.oneLine : sizes.twoLines;
        size = std::min(size, byWidth);
        sizes.oneLine =
            std::min(sizes.oneLine, std::floor(value.height * kCapShare / capPerHeight));
        sizes.twoLines =
            std::min(sizes.twoLines, std::floor(value.height * kCapShareOfLine / capPerHeight));
    }
    return sizes;
}

// In a wide column the cells grow with their type.
double tallestCell(double width) {
    constexpr double kTallestShare = 0.8;
    return std::max(kTallestCell, kTallestShare * width);
}

// What a pilot flies by stays when others have to go.
bool isImportant(NavFieldId field) {
    return field == NavFieldId::Altitude || field == NavFieldId::GroundSpeed ||
           field == NavFieldId::Track || field == NavFieldId::Distance;
}

class CellPainter {
 public:
    CellPainter(Canvas& canvas, const MapColorCache& colors) : canvas_(canvas), colors_(colors) {}

    void paint(const NavField& field, const Rect& cell, const ValueSizes& sizes,
               const CockpitData& data) {
        const CellParts parts = partsOf(cell);
        canvas_.rect(parts.value, Brush{colors_[ColorKey::NavBackground]}, std::nullopt);
        paintHeader(text(field.header), parts.header);
        const NavFieldText text = field.format(data);
        if (!text.secondLine.empty())
            paintTwoLines(text, parts.value, sizes.twoLines);
        else
            paintValue(text, parts.value, sizes.oneLine);
    }

 private:
    // By night a bright band across the window dazzles: the brightness then ends with the word.
    void paintHeader(std::string_view word, const Rect& area) {
        const Font font{.height = std::round(area.height * 0.8), .weight = FontWeight::Bold};
        const ColorValue ground = colors_[ColorKey::NavHeaderBackground];
        const ColorValue ink = colors_[ColorKey::NavHeader];
        Rect tab = area;
        if (colors_.isDark() && lightOf(ground) > lightOf(ink)) {
            canvas_.rect(area, Brush{colors_[ColorKey::NavBackground]}, std::nullopt);
            tab.width =
                std::min(area.width,
                         std::round(canvas_.textMeasure().measure(word, font).width + font.height));
            tab.x = std::round(area.center().x - tab.width / 2);
        }
        canvas_.rect(tab, Brush{ground}, std::nullopt);
        canvas_.text(
            area.center(), word,
            {.font = font, .color = ink, .alignX = AlignX::Center, .alignY = AlignY::Middle});
    }

    TextStyle style(const Font& font) const {
        return {.font = font, .color = colors_[ColorKey::NavText], .alignY = AlignY::Middle};
    }

    void paintTwoLines(const NavFieldText& text, const Rect& area, double height) {
        TextStyle centered = style(valueFont(height));
        centered.alignX = AlignX::Center;
        const double step = area.height * 0.22;
        for (const auto& [line, down] :
             {std::pair{&text.value, -step}, std::pair{&text.secondLine, step}}) {
            centered.font = valueFont(fittingHeight(*line, "", area.width, height));
            canvas_.text({area.center().x, area.center().y + down}, *line, centered);
        }
    }

    // Names and rare values are longer than what the strip's type is chosen for.
    double fittingHeight(const std::string& value, const std::string& unit, double room,
                         double height) const {
        double width = canvas_.textMeasure().measure(value, valueFont(height)).width;
        if (!unit.empty())
            width +=
                canvas_.textMeasure().measure(unit, unitFont(height)).width + height * kUnitGap;
        const double most = room - 2;
        return width <= most ? height : std::floor(height * most / width);
    }

    void paintValue(const NavFieldText& text, const Rect& area, double usualHeight) {
        const double height = fittingHeight(text.value, text.unit, area.width, usualHeight);
        const TextExtent value = canvas_.textMeasure().measure(text.value, valueFont(height));
        const Font small = unitFont(height);
        const double unitWidth =
            text.unit.empty()
                ? 0
                : canvas_.textMeasure().measure(text.unit, small).width + height * kUnitGap;
        const double left = area.center().x - (value.width + unitWidth) / 2;
        const double middle = area.center().y;
        canvas_.text({left, middle}, text.value, style(valueFont(height)));
        if (text.unit.empty())
            return;
        TextStyle beside = style(small);
        beside.alignY = AlignY::Baseline;
        canvas_.text({left + value.width + height * kUnitGap, middle + value.capHeight / 2},
                     text.unit, beside);
    }

    Canvas& canvas_;
    const MapColorCache& colors_;
};

}  // namespace

std::vector<NavFieldId> FieldStrip::fitting(std::span<const NavFieldId> chosen,
                                            FieldArrangement arrangement, double width,
                                            double height) {
    const double perRow = std::floor(width / kNarrowCell);
    double most = perRow;
    if (arrangement == FieldArrangement::TwoRows)
        most = 2 * std::max(3.0, perRow);
    if (arrangement == FieldArrangement::Column)
        most = 2 * std::floor(height / kLowCell);
    const auto room = static_cast<std::size_t>(std::max(most, 5.0));
    std::vector<NavFieldId> fields(chosen.begin(), chosen.end());
    for (std::size_t i = fields.size(); i-- > 0 && fields.size() > room;)
        if (!isImportant(fields[i]))
            fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(i));
    return fields;
}

std::optional<std::size_t> FieldStrip::fieldAt(const Rect& strip, FieldArrangement arrangement,
                                               std::size_t count, Point point) {
    const std::vector<Rect> areas = cells(strip, arrangement, count);
    const auto hit =
        std::ranges::find_if(areas, [point](const Rect& area) { return area.contains(point); });
    if (hit == areas.end())
        return std::nullopt;
    return static_cast<std::size_t>(hit - areas.begin());
}

std::vector<Rect> FieldStrip::cells(const Rect& strip, FieldArrangement arrangement,
                                    std::size_t count) {
    if (count == 0)
        return {};
    // The first gap lies at the strip's own edge.
    const Rect area{kGap, kGap, strip.width - kGap, strip.height - kGap};
    std::size_t perRow = count;
    if (arrangement == FieldArrangement::TwoRows)
        perRow = (count + 1) / 2;
    if (arrangement == FieldArrangement::Column)
        perRow = 2;
    const std::size_t rows = (count + perRow - 1) / perRow;
    double height = area.height / static_cast<double>(rows);
    if (arrangement == FieldArrangement::Column)
        height = std::min(height, tallestCell(area.width / 2));
    std::vector<Rect> all =
        gridCells({area.x, area.y, area.width, height * static_cast<double>(rows)}, perRow, rows);
    all.resize(count);
    return all;
}

void FieldStrip::paint(Canvas& canvas, FieldArrangement arrangement,
                       std::span<const NavFieldId> fields, const CockpitData& data) const {
    const std::vector<Rect> areas = cells(canvas.area(), arrangement, fields.size());
    canvas.rect(canvas.area(), Brush{colors_[ColorKey::MapBackground]}, std::nullopt);
    if (areas.empty())
        return;
    const ValueSizes sizes = fittingSizes(canvas.textMeasure(), fields, areas);
    CellPainter painter(canvas, colors_);
    for (std::size_t i = 0; i < fields.size(); ++i)
        painter.paint(navField(fields[i]), areas[i], sizes, data);
}

}  // namespace korvel
