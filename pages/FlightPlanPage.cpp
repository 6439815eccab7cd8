#include "pages/FlightPlanPage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "pages/NavField.h"
#include "pages/PlanFigures.h"
#include "paint/MapColorCache.h"
#include "paint/TextLine.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kLeastRowPx = 40;  // 9 mm and a little
constexpr double kFaded = 0.5;
constexpr double kWideEnoughPx = 900;  // for a column more
constexpr double kNarrowPx = 600;      // no room for fuel and time side by side
constexpr double kBarPx = 6;

/// The columns of figures, from the right edge; the waypoint takes what is left.
enum class Column : std::uint8_t { Altitude, Track, Leg, Total, Time, Arrival, Fuel };

struct ColumnLook {
    Column column{};
    Text head;
    double widthEm = 0;   ///< of the type size
    bool always = false;  ///< also in a narrow window
};

constexpr std::array kColumns{ColumnLook{Column::Altitude, kInstrumentTexts.altitude, 3.9, true},
                              ColumnLook{Column::Track, kInstrumentTexts.trackMagnetic, 3.4, true},
                              ColumnLook{Column::Leg, kInstrumentTexts.distance, 4.0, true},
                              ColumnLook{Column::Total, kInstrumentTexts.total, 4.4, false},
                              ColumnLook{Column::Time, kInstrumentTexts.ete, 3.6, true},
                              ColumnLook{Column::Arrival, kInstrumentTexts.eta, 4.2, true},
                              ColumnLook{Column::Fuel, kInstrumentTexts.fuel, 4.4, true}};

std::string milesText(const std::optional<double>& nm, DistanceUnit unit) {
    if (!nm)
        return std::string(kNoValue);
    const double shown = ConvertDistance(*nm, unit);
    return formatFixed(shown, shown < 99.95 ? 1 : 0);
}

bool isBelowReserve(const PlanFigures& figures, const CockpitData& data) {
    return data.aircraft && figures.fuelLeft && *figures.fuelLeft < data.aircraft->reserveFuel();
}

/// Below the reserve it says so in a word.
std::string fuelCell(const PlanFigures& figures, const CockpitData& data) {
    if (!figures.fuelLeft)
        return "";
    if (*figures.fuelLeft <= 0)
        return std::string(text(kAircraftTexts.empty));
    const std::string amount = formatFixed(*figures.fuelLeft, 0);
    return isBelowReserve(figures, data) ? formatText(kAircraftTexts.reserveShort, {amount})
                                         : amount;
}

/// What stands in a column of a row, and nothing where nothing is expected.
std::string cellText(Column column, const PlanRow& row, const PlanFigures& figures,
                     const CockpitData& data) {
    switch (column) {
        case Column::Altitude:
            return row.altitudeFt ? altitudeText(*row.altitudeFt, data.altUnit) : "";
        case Column::Track:
            return figures.courseMagDeg ? courseText(*figures.courseMagDeg) + "°" : "";
        case Column::Leg:
            return figures.legNm ? milesText(figures.legNm, data.distanceUnit) : "";
        case Column::Total:
            return figures.totalNm ? milesText(figures.totalNm, data.distanceUnit) : "";
        case Column::Time:
            return figures.legNm ? durationText(figures.legHours) : "";
        case Column::Arrival:
            return figures.totalNm ? arrivalText(figures.totalHours, data.now) : "";
        case Column::Fuel:
            return fuelCell(figures, data);
    }
    return {};
}

/// Of all legs; nothing when one of them has none.
std::optional<double> sumOfHours(const std::vector<PlanFigures>& figures) {
    double sum = 0;
    for (const PlanFigures& row : figures) {
        if (row.legNm && !row.legHours)
            return std::nullopt;
        sum += row.legHours.value_or(0);
    }
    return sum;
}

/// Where the fuel is counted, at the right of all other columns.
bool showsFuel(const CockpitData& data) { return data.aircraft && data.fuelLeft; }

class FlightPlanPainter {
 public:
    FlightPlanPainter(Canvas& canvas, const CockpitData& data, const FlightPlanView& view,
                      const MapColorCache& colors)
        : canvas_(canvas),
          data_(data),
          view_(view),
          colors_(colors),
          rows_(canvas.width(), canvas.height(), data.plan ? data.plan->rows.size() : 0),
          first_(firstShownRow(data, view, rows_)),
          textPx_(rows_.textPx()),
          background_(colors[ColorKey::MapBackground]),
          ink_(colors[ColorKey::HsiNumeral]),
          line_(blended(colors[ColorKey::HsiLine], background_, 0.75)) {}

    void paint() {
        canvas_.rect({0, 0, canvas_.width(), canvas_.height()}, Brush{background_}, std::nullopt);
        if (!data_.plan || data_.plan->rows.empty()) {
            empty();
            return;
        }
        layOutColumns();
        header();
        // Those of the legs are not known while the order changes.
        const std::vector<PlanFigures> figures =
            view_.lifted ? std::vector<PlanFigures>(data_.plan->rows.size()) : planFigures(data_);
        const std::size_t end = std::min(first_ + rows_.visible(), data_.plan->rows.size());
        for (std::size_t i = first_; i < end; ++i)
            if (const std::size_t shown = rowAtPlace(i); !isLifted(shown))
                row(shown, rows_.row(i, first_), figures[shown]);
        if (view_.lifted && view_.lifted->row < figures.size())
            lifted(figures[view_.lifted->row]);
        scrollBar();
        totals(figures);
    }

 private:
    struct PlacedColumn {
        const ColumnLook* look;
        double right;
    };

    void layOutColumns() {
        double right = canvas_.width() - textPx_ * 0.7 - kBarPx;
        for (std::size_t i = kColumns.size(); i-- > 0;) {
            const ColumnLook& look = kColumns.at(i);
            if ((!look.always && canvas_.width() < kWideEnoughPx) ||
                (look.column == Column::Fuel && !showsFuel(data_)) ||
                (look.column == Column::Time && showsFuel(data_) && canvas_.width() < kNarrowPx))
                continue;
            columns_.push_back({&look, right});
            right -= look.widthEm * textPx_;
        }
        namesEnd_ = right;
    }

    [[nodiscard]] TextStyle style(double share, ColorValue color, AlignX align,
                                  bool bold = true) const {
        return {.font = {.height = std::round(textPx_ * share),
                         .weight = bold ? FontWeight::Bold : FontWeight::Regular},
                .color = color,
                .alignX = align,
                .alignY = AlignY::Middle};
    }

    void empty() {
        TextStyle words = style(1.4, ink_, AlignX::Center);
        const std::string_view note = text(kStatusTexts.noFlightPlan);
        const double width = canvas_.textMeasure().measure(note, words.font).width;
        words.font.height *= std::min(1.0, 0.92 * canvas_.width() / width);
        canvas_.text({canvas_.width() / 2, canvas_.height() / 2}, note, words);
    }

    void header() {
        const Rect area = rows_.header();
        canvas_.rect(area, Brush{colors_[ColorKey::MapInfoBackground]}, std::nullopt);
        const ColorValue color = colors_[ColorKey::MapInfoText];
        const double y = area.center().y;
        std::string title = data_.plan->fileName.empty()
                                ? std::string(text(kInstrumentTexts.waypoints))
                                : data_.plan->fileName;
        title += data_.plan->changed ? " *" : "";
        const TextStyle left = style(0.8, color, AlignX::Left);
        canvas_.text({namesBegin(), y}, fitting(title, left.font, namesEnd_ - namesBegin()), left);
        for (const PlacedColumn& column : columns_)
            canvas_.text({column.right, y}, headOf(*column.look), style(0.8, color, AlignX::Right));
    }

    /// With its unit where that depends on the settings.
    [[nodiscard]] std::string headOf(const ColumnLook& look) const {
        std::string head(text(look.head));
        if (look.column == Column::Leg) {
            UnitLabels labels;
            ConvertDistance(0, data_.distanceUnit, &labels);
            head.append(" ").append(labels.distance);
        }
        if (look.column == Column::Fuel && data_.aircraft)
            head.append(" ").append(fuelUnitText(data_.aircraft->fuelUnit));
        if (look.column == Column::Arrival)
            head.append(" ").append(text(kInstrumentTexts.localTime));
        return head;
    }

    [[nodiscard]] double namesBegin() const { return textPx_ * 2.2; }

    [[nodiscard]] std::string fitting(const std::string& whole, const Font& font,
                                      double width) const {
        return fittingText(canvas_.textMeasure(), whole, font, width);
    }

    [[nodiscard]] bool isLifted(std::size_t row) const {
        return view_.lifted && view_.lifted->row == row;
    }

    /// Which row stands there while another one is carried over the list.
    [[nodiscard]] std::size_t rowAtPlace(std::size_t place) const {
        if (!view_.lifted)
            return place;
        const auto& [from, to, y] = *view_.lifted;
        if (place == to)
            return from;
        if (from < to)
            return place >= from && place < to ? place + 1 : place;
        return place > to && place <= from ? place - 1 : place;
    }

    /// Of the plan in the order that is shown.
    [[nodiscard]] double totalNm() const {
        if (!view_.lifted)
            return data_.plan->totalNm;
        double total = 0;
        for (std::size_t place = 1; place < data_.plan->rows.size(); ++place)
            total += DistanceNm(data_.plan->rows[rowAtPlace(place - 1)].position,
                                data_.plan->rows[rowAtPlace(place)].position);
        return total;
    }

    /// Over all others, under the finger.
    void lifted(const PlanFigures& figures) {
        Rect area = rows_.row(first_, first_);
        area.y = std::clamp(view_.lifted->y - area.height / 2, rows_.header().bottom(),
                            rows_.totals().y - area.height);
        canvas_.rect(area, Brush{background_}, Pen{colors_[ColorKey::MapNavaidSelected], 4});
        row(view_.lifted->row, area, figures);
    }

    void row(std::size_t index, const Rect& area, const PlanFigures& figures) {
        const PlanRow& row = data_.plan->rows[index];
        const PlanPart part = planPart(*data_.plan, index);
        const bool isActive = part == PlanPart::Active;
        const ColorValue ink = isBehind(part) ? blended(ink_, background_, kFaded) : ink_;
        if (isActive)
            canvas_.rect(area, Brush{blended(activeColor(), background_, 0.82)}, std::nullopt);
        canvas_.line({area.x, area.bottom()}, {area.right(), area.bottom()}, {line_, 1});
        mark({area.x + textPx_ * 1.1, area.center().y}, part);
        names(row, area, ink, isActive);
        for (const PlacedColumn& column : columns_) {
            const std::string words = cellText(column.look->column, row, figures, data_);
            const TextStyle look = style(1, ink, AlignX::Right, isActive);
            canvas_.text({column.right, area.center().y}, words, look);
            if (column.look->column == Column::Fuel && isBelowReserve(figures, data_))
                frame({column.right - widthOf(words, look), area.center().y}, widthOf(words, look));
        }
        if (view_.selectedRow == index)
            canvas_.rect({area.x + 1.5, area.y + 1.5, area.width - kBarPx - 3, area.height - 3},
                         std::nullopt, Pen{colors_[ColorKey::MapNavaidSelected], 3});
    }

    /// Of a caution, around words that begin there.
    void frame(Point at, double width) {
        const double around = textPx_ * 0.25;
        canvas_.rect({at.x - around, at.y - 0.75 * textPx_, width + 2 * around, 1.5 * textPx_},
                     std::nullopt, Pen{colors_[ColorKey::GeoWarning], 2});
    }

    [[nodiscard]] ColorValue activeColor() const { return colors_[ColorKey::MapFlightPlanActive]; }

    /// An arrowhead for what is flown to, a tick for what was flown to before.
    void mark(Point at, PlanPart part) {
        const double r = textPx_ * 0.5;
        if (part == PlanPart::Active)
            canvas_.polygon(std::array{Point{at.x - r, at.y - r}, Point{at.x + r, at.y},
                                       Point{at.x - r, at.y + r}},
                            Brush{activeColor()}, std::nullopt);
        if (part == PlanPart::Passed)
            canvas_.polyline(
                std::array{Point{at.x - r * 0.8, at.y}, Point{at.x - r * 0.2, at.y + r * 0.6},
                           Point{at.x + r * 0.8, at.y - r * 0.6}},
                {blended(ink_, background_, kFaded), 2});
    }

    void names(const PlanRow& row, const Rect& area, ColorValue ink, bool isActive) {
        const TextStyle ident = style(isActive ? 1.25 : 1.1, ink, AlignX::Left);
        const double y = area.center().y;
        const double room = namesEnd_ - namesBegin() - textPx_ * 0.4;
        const std::string shown = fitting(row.ident, ident.font, room);
        canvas_.text({namesBegin(), y}, shown, ident);
        double begin = canvas_.textMeasure().measure(shown, ident.font).width + textPx_ * 0.6;
        if (row.expired)
            begin += expiredMark({namesBegin() + begin, y}, room - begin);
        if (row.name == row.ident || shown != row.ident)
            return;
        const TextStyle name = style(0.85, blended(ink, background_, 0.25), AlignX::Left, false);
        canvas_.text({namesBegin() + begin, y}, fitting(row.name, name.font, room - begin), name);
    }

    /// A word in a frame, so that it does not hang on the colour; smaller where there is little
    /// room. The result is what it takes up.
    [[nodiscard]] double expiredMark(const Point& at, double room) const {
        const ColorValue color = colors_[ColorKey::MapObstacleDanger];
        TextStyle words = style(0.7, color, AlignX::Left);
        const std::string_view word = text(kStatusTexts.expired);
        const double padding = textPx_ * 0.2;
        const double wanted = canvas_.textMeasure().measure(word, words.font).width + 2 * padding;
        words.font.height *= std::clamp(room / wanted, 0.5, 1.0);
        const double width = canvas_.textMeasure().measure(word, words.font).width + 2 * padding;
        const double height = 1.3 * words.font.height;
        canvas_.rect({at.x, at.y - height / 2, width, height}, std::nullopt, Pen{color, 2});
        canvas_.text({at.x + padding, at.y}, word, words);
        return width + textPx_ * 0.5;
    }

    void scrollBar() {
        const std::size_t count = data_.plan->rows.size();
        if (count <= rows_.visible())
            return;
        const double top = rows_.header().bottom();
        const double height = rows_.totals().y - top;
        const auto share = [&](std::size_t row) {
            return height * static_cast<double>(row) / static_cast<double>(count);
        };
        canvas_.rect({canvas_.width() - kBarPx, top + share(first_), kBarPx,
                      std::max(share(rows_.visible()), 2 * kBarPx)},
                     Brush{colors_[ColorKey::HsiLine], 0.6}, std::nullopt);
    }

    void totals(const std::vector<PlanFigures>& figures) {
        const PlanFigures& last = figures.back();
        const Rect area = rows_.totals();
        canvas_.line({area.x, area.y}, {area.right(), area.y}, {colors_[ColorKey::HsiLine], 2});
        std::vector<std::string> words{formatText(kInstrumentTexts.totalDistance,
                                                  {distanceText(totalNm(), data_.distanceUnit)})};
        if (last.totalNm && data_.distanceNm && flownRow(data_))
            words.insert(
                words.end(),
                {formatText(kInstrumentTexts.distanceToGo,
                            {distanceText(*last.totalNm, data_.distanceUnit)}),
                 formatText(kInstrumentTexts.eteOf, {durationText(last.totalHours)}),
                 formatText(kInstrumentTexts.etaOf, {arrivalText(last.totalHours, data_.now),
                                                     text(kInstrumentTexts.localTime)})});
        addAircraft(figures, words);
        const double left = textPx_ * 0.7;
        const double room = columns_.front().right - left;
        double taken = (static_cast<double>(words.size()) - 1) * textPx_;  // with the least gaps
        for (const std::string& word : words)
            taken += widthOf(word, style(1, ink_, AlignX::Left));
        const TextStyle look = style(std::min(1.0, room / taken), ink_, AlignX::Left);
        double gap = room;
        for (const std::string& word : words)
            gap -= widthOf(word, look);
        gap /= std::max(static_cast<double>(words.size()) - 1, 1.0);
        const bool isShort = isBelowReserve(last, data_);
        double x = left;
        for (std::size_t i = 0; i < words.size(); ++i) {
            canvas_.text({x, area.center().y}, words[i], look);
            if (isShort && i + 1 == words.size())
                frame({x, area.center().y}, widthOf(words[i], look));
            x += widthOf(words[i], look) + gap;
        }
    }

    /// What the planned times go by, and the fuel at the end.
    void addAircraft(const std::vector<PlanFigures>& figures,
                     std::vector<std::string>& words) const {
        const PlanFigures& last = figures.back();
        if (timesArePlanned(data_)) {
            const int speed = RoundToInt(data_.aircraft->cruiseKt);
            words.front() += "  ";
            words.front() += data_.wind ? formatText(kAircraftTexts.plannedWithWind,
                                                     {speed, std::string_view(windText(data_))})
                                        : formatText(kAircraftTexts.planned, {speed});
            if (!last.totalHours)
                words.push_back(
                    formatText(kInstrumentTexts.eteOf, {durationText(sumOfHours(figures))}));
        }
        if (!last.fuelLeft)
            return;
        const std::string amount = *last.fuelLeft > 0
                                       ? fuelText(*last.fuelLeft, data_.aircraft->fuelUnit)
                                       : std::string(text(kAircraftTexts.empty));
        words.push_back(formatText(kAircraftTexts.fuelAtEnd, {amount}));
        if (isBelowReserve(last, data_))
            words.back().append(" ").append(text(kAircraftTexts.belowReserve));
    }

    [[nodiscard]] double widthOf(const std::string& word, const TextStyle& look) const {
        return canvas_.textMeasure().measure(word, look.font).width;
    }

    Canvas& canvas_;
    const CockpitData& data_;
    const FlightPlanView& view_;
    const MapColorCache& colors_;
    FlightPlanRows rows_;
    std::size_t first_;
    double textPx_;
    ColorValue background_;
    ColorValue ink_;
    ColorValue line_;
    std::vector<PlacedColumn> columns_;  ///< from the right
    double namesEnd_ = 0;
};

}  // namespace

FlightPlanRows::FlightPlanRows(double width, double height, std::size_t rowCount)
    : count_(rowCount),
      textPx_(std::clamp(std::round(std::min(width / 34, height / 22)), 16.0, 28.0)),
      rowHeight_(std::max(kLeastRowPx, std::round(textPx_ * 2))),
      header_{0, 0, width, std::round(textPx_ * 1.5)},
      totals_{0, height - rowHeight_, width, rowHeight_} {
    list_ = {0, header_.bottom(), width, std::max(0.0, totals_.y - header_.bottom())};
    visible_ = static_cast<std::size_t>(list_.height / rowHeight_);
}

std::size_t FlightPlanRows::lastFirst() const {
    return count_ - std::min(count_, std::max<std::size_t>(visible_, 1));
}

std::size_t FlightPlanRows::firstFor(std::size_t row) const {
    return std::min(row - std::min<std::size_t>(row, 1), lastFirst());
}

Rect FlightPlanRows::row(std::size_t row, std::size_t first) const {
    return {list_.x, list_.y + static_cast<double>(row - first) * rowHeight_, list_.width,
            rowHeight_};
}

std::optional<std::size_t> FlightPlanRows::rowAt(Point point, std::size_t first) const {
    if (!list_.contains(point))
        return std::nullopt;
    const auto below = static_cast<std::size_t>((point.y - list_.y) / rowHeight_);
    return below < visible_ && first + below < count_ ? std::optional(first + below) : std::nullopt;
}

std::size_t firstShownRow(const CockpitData& data, const FlightPlanView& view,
                          const FlightPlanRows& rows) {
    if (view.firstRow)
        return std::min(*view.firstRow, rows.lastFirst());
    return rows.firstFor(data.plan ? data.plan->active.value_or(0) : 0);
}

void paintFlightPlanPage(Canvas& canvas, const CockpitData& data, const FlightPlanView& view,
                         const MapColorCache& colors) {
    FlightPlanPainter(canvas, data, view, colors).paint();
}

}  // namespace korvel
