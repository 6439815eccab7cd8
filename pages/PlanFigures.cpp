#include "pages/PlanFigures.h"

#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "pages/NavField.h"

namespace korvel {
namespace {

constexpr double kMostHours = 100;
constexpr int kMinutesPerHour = 60;
constexpr int kHoursPerDay = 24;

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
        if (data.groundSpeedKt && *data.groundSpeedKt > 0) {
            row.legHours = *row.legNm / *data.groundSpeedKt;
            if (isFlown)
                row.totalHours = total / *data.groundSpeedKt;
        }
    }
    return figures;
}

std::string durationText(const std::optional<double>& hours) {
    if (!isShown(hours))
        return std::string(kNoValue);
    const int minutes = static_cast<int>(std::lround(*hours * kMinutesPerHour));
    return formatInt(minutes / kMinutesPerHour) + ":" + zeroPadded(minutes % kMinutesPerHour, 2);
}

std::string arrivalText(const std::optional<double>& hours, const LocalTime& now) {
    if (!isShown(hours))
        return std::string(kNoValue);
    const double minutes =
        *hours * kMinutesPerHour + now.hour * kMinutesPerHour + now.minute + now.second / 60.0;
    const int whole = RoundToInt(minutes) % (kHoursPerDay * kMinutesPerHour);
    return zeroPadded(whole / kMinutesPerHour, 2) + ":" + zeroPadded(whole % kMinutesPerHour, 2);
}

}  // namespace korvel
