#include "pages/PlanFigures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "nav/aircraft/PlannedTimes.h"
#include "pages/NavField.h"

namespace korvel {
namespace {

constexpr double kMostHours = 100;
constexpr double kFliesFromKt = 30;  // slower than this nobody is on the way
constexpr int kMinutesPerHour = 60;

/// What is to be climbed from where the aircraft is, or from the plan's beginning, and descended to
/// the altitude that is wanted at the end; 0 for what is not known.
PlannedHeights plannedHeights(const CockpitData& data, std::size_t first) {
    const std::vector<PlanRow>& rows = data.plan->rows;
    std::optional<int> highest;
    for (std::size_t i = first; i < rows.size(); ++i)
        if (rows[i].altitudeFt)
            highest = std::max(highest.value_or(*rows[i].altitudeFt), *rows[i].altitudeFt);
    if (!highest)
        return {};
    const auto from = data.altitudeFt ? data.altitudeFt : rows.front().altitudeFt;
    return {.climbFt = static_cast<double>(*highest - from.value_or(*highest)),
            .descentFt = static_cast<double>(*highest - rows.back().altitudeFt.value_or(*highest))};
}

/// How long each row's leg takes, from `first` on; the legs' lengths are known.
std::vector<std::optional<double>> hoursOf(const CockpitData& data,
                                           const std::vector<PlanFigures>& figures,
                                           std::size_t first) {
    std::vector<std::optional<double>> hours(figures.size());
    if (!timesArePlanned(data)) {
        for (std::size_t i = first; i < figures.size(); ++i)
            if (figures[i].legNm && data.groundSpeedKt && *data.groundSpeedKt > 0)
                hours[i] = *figures[i].legNm / *data.groundSpeedKt;
        return hours;
    }
    const std::vector<PlanRow>& rows = data.plan->rows;
    const bool isFlown = flownRow(data).has_value();
    std::vector<PlannedLeg> legs;
    for (std::size_t i = first; i < figures.size(); ++i) {
        const bool fromHere = i == first && isFlown && data.position;
        const GeoPoint from =
            fromHere ? *data.position : rows[i - std::min<std::size_t>(i, 1)].position;
        legs.push_back({TrueCourseDeg(from, rows[i].position), figures[i].legNm.value_or(0)});
    }
    const std::optional<Wind> wind = data.wind ? std::optional(data.wind->wind) : std::nullopt;
    const auto planned = plannedHours(legs, *data.aircraft, plannedHeights(data, first), wind);
    for (std::size_t i = first; i < figures.size(); ++i)
        if (figures[i].legNm)
            hours[i] = planned[i - first];
    return hours;
}

bool isShown(const std::optional<double>& hours) { return hours && *hours < kMostHours; }

}  // namespace

std::vector<PlanFigures> planFigures(const CockpitData& data) {
    if (!data.plan)
        return {};
    const std::vector<PlanRow>& rows = data.plan->rows;
    const bool isFlown = data.distanceNm && flownRow(data);
    const std::size_t first = isFlown ? *flownRow(data) : 0;
    std::vector<PlanFigures> figures(rows.size());
    double total = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        PlanFigures& row = figures[i];
        row.courseMagDeg = rows[i].courseMagDeg;
        if (isFlown && i < first)
            continue;
        row.legNm = rows[i].legNm;
        if (isFlown && i == first) {
            row.legNm = data.distanceNm;
            if (data.desiredTrackMagDeg)
                row.courseMagDeg = data.desiredTrackMagDeg;
        }
        if (!row.legNm)
            continue;
        total += *row.legNm;
        row.totalNm = total;
    }
    const std::vector<std::optional<double>> hours = hoursOf(data, figures, first);
    std::optional<double> sum = 0;
    for (std::size_t i = first; i < rows.size(); ++i) {
        PlanFigures& row = figures[i];
        row.legHours = hours[i];
        if (row.legNm)
            sum = sum && hours[i] ? std::optional(*sum + *hours[i]) : std::nullopt;
        if (isFlown && row.legNm)
            row.totalHours = sum;
        if (sum && data.aircraft && data.fuelLeft)
            row.fuelLeft = *data.fuelLeft - *sum * data.aircraft->burnPerHour;
    }
    return figures;
}

bool timesArePlanned(const CockpitData& data) {
    return data.aircraft && (!data.groundSpeedKt || *data.groundSpeedKt < kFliesFromKt);
}

std::string durationText(const std::optional<double>& hours) {
    if (!isShown(hours))
        return std::string(kNoValue);
    return hoursAndMinutes(std::lround(*hours * kMinutesPerHour));
}

std::string arrivalText(const std::optional<double>& hours, const LocalTime& now) {
    if (!isShown(hours))
        return std::string(kNoValue);
    const double minutes =
        *hours * kMinutesPerHour + now.hour * kMinutesPerHour + now.minute + now.second / 60.0;
    const int whole = RoundToInt(minutes);
    return timeOfDayText(std::int64_t{whole} * 60);
}

}  // namespace korvel
