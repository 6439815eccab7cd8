#include "app/PlaceSheet.h"

#include <cmath>

#include <QPainter>

#include "app/CKorvelDoc.h"
#include "app/QtCanvas.h"
#include "app/QtText.h"
#include "display/AirportPicture.h"
#include "display/GeoText.h"
#include "nav/Geodesy.h"
#include "nav/PlanEdit.h"
#include "nav/TextNumbers.h"
#include "navdb/AirportRecord.h"

namespace korvel {
namespace {

constexpr int kPicturePixels = 200;

/// An airport's runways to scale.
class RunwayPicture final : public QWidget {
 public:
    RunwayPicture(const PlaceSheet::Look& look, std::shared_ptr<const DatabaseRecord> record)
        : look_(look), record_(std::move(record)) {
        setMinimumHeight(kPicturePixels);
    }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Rect area{0, 0, static_cast<double>(width()), static_cast<double>(height())};
        QtCanvas canvas(painter, look_.labels, area);
        paintAirportPicture(canvas, area, static_cast<const AirportRecord&>(*record_),
                            look_.colors);
    }

 private:
    PlaceSheet::Look look_;
    std::shared_ptr<const DatabaseRecord> record_;
};

std::string lineOf(const RunwayRecord& runway) {
    std::string line;
    for (const RunwayEnd& end : runway.ends)
        line.append(line.empty() ? "" : "/").append(end.id);
    if (runway.lengthFt) {
        line += "   " + formatInt(*runway.lengthFt);
        if (runway.widthFt)
            line += " x " + formatInt(*runway.widthFt);
        line += " ft";
    }
    if (!runway.surface.empty())
        line += "   " + runway.surface;
    for (const RunwayEnd& end : runway.ends)
        if (end.pattern == 'R')
            line += "   " + formatText(TextId::RightPattern, {std::string_view(end.id)});
    return line + '\n';
}

std::string airportText(const AirportRecord& airport, int altUnit) {
    std::string lines;
    if (airport.elevationFt != kNoElevationFt)
        lines += formatText(TextId::PlaceElevation,
                            {std::string_view(altitudeText(airport.elevationFt, altUnit))}) +
                 '\n';
    if (const double variation = airport.magVariationDeg; variation != kNoAngle)
        lines += formatText(TextId::PlaceVariation, {RoundToInt(std::abs(variation)),
                                                     std::string_view(variation < 0 ? "W" : "E")}) +
                 '\n';
    for (const CommFreqRecord& comm : airport.comms)
        lines += comm.type + "   " + QString::number(comm.freqMhz, 'f', 3).toStdString() + '\n';
    for (const RunwayRecord& runway : airport.runways)
        lines += lineOf(runway);
    return airport.info.empty() ? lines : lines + airport.info + '\n';
}

/// Where it is, and where that is from the aircraft.
std::string positionText(const CockpitData& data, GeoPoint place) {
    std::string lines = latitudeText(place.lat / kDegToRad, 2) + "  " +
                        longitudeText(place.lon / kDegToRad, 2) + '\n';
    if (!data.position)
        return lines;
    const double bearing = TrueCourseDeg(*data.position, place) - data.variationDeg.value_or(0);
    return lines + distanceText(DistanceNm(*data.position, place)) + "   " + courseText(bearing) +
           (data.variationDeg ? "\u00b0M\n" : "\u00b0T\n");
}

}  // namespace

std::string placeText(const CKorvelDoc& document, const DatabaseRecord& record) {
    const CockpitData& data = document.cockpitData();
    std::string lines = std::string(record.ident.view()) + "   " + std::string(record.GetName());
    if (record.expired)
        lines += "   " + std::string(text(TextId::Expired));
    lines += '\n';
    if (const std::string info = record.GetInfoText(); !info.empty())
        lines += info + '\n';
    if (IsValid(record.position))
        lines += positionText(data, record.position);
    if (record.GetKind() == kAirportKind)
        lines += airportText(static_cast<const AirportRecord&>(record), data.altUnit);
    return lines;
}

PlaceSheet::PlaceSheet(QWidget* parent, CKorvelDoc& document, const Look& look,
                       std::shared_ptr<const DatabaseRecord> record)
    : Sheet(parent, toQString(record->ident.view()), QDialogButtonBox::Close) {
    auto* page = new QWidget;  // the scroll area takes it
    auto* lines = new QVBoxLayout(page);
    auto* words = new QLabel(toQString(placeText(document, *record)));  // its layout's parent's
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    lines->addWidget(words);
    if (record->GetKind() == kAirportKind)
        lines->addWidget(new RunwayPicture(look, record));
    scroll_.setWidget(page);
    scroll_.setWidgetResizable(true);
    setPreferredWidth(13 * kRowPixels);
    addTallRow(scroll_);
    addButton(direct_, TextId::DirectToTitle, [this, record] {
        QDialog::accept();
        if (onDirectTo)
            onDirectTo({.identifier = record->key, .where = record->position});
    });
    addButton(add_, TextId::AddToPlan, [this, &document, record] {
        PlanDesk& plan = document.navigator().plan();
        PlanEntries entries = plan.entries();
        const std::size_t end = entries.size();
        plan.replace(withRecord(std::move(entries), end, record));
        QDialog::accept();
    });
    addButton(show_, TextId::ShowOnMap, [this, record] {
        QDialog::accept();
        if (onShow)
            onShow(record->position);
    });
}

void PlaceSheet::addButton(QPushButton& button, TextId text, const std::function<void()>& handler) {
    button.setText(toQString(text));
    button.setAutoDefault(false);
    button.setMinimumSize(2 * kRowPixels, kRowPixels);
    buttons().addButton(&button, QDialogButtonBox::ActionRole);
    connect(&button, &QPushButton::clicked, this, handler);
}

}  // namespace korvel
