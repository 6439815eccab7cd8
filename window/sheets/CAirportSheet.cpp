#include "window/sheets/CAirportSheet.h"

#include <cmath>

#include <QPainter>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "pages/AirportPicture.h"
#include "pages/AirportText.h"
#include "qtpaint/QtCanvas.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kPicturePixels = 200;

/// An airport's runways to scale.
class RunwayPicture final : public QWidget {
 public:
    RunwayPicture(const CAirportSheet::Look& look, std::shared_ptr<const AirportRecord> airport,
                  int altUnit)
        : look_(look), airport_(std::move(airport)), altUnit_(altUnit) {
        setFixedSize(kPicturePixels, kPicturePixels);
    }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Rect area{0, 0, static_cast<double>(width()), static_cast<double>(height())};
        QtCanvas canvas(painter, look_.labels, area);
        paintAirportPicture(canvas, area, *airport_, altUnit_, look_.colors);
    }

 private:
    CAirportSheet::Look look_;
    std::shared_ptr<const AirportRecord> airport_;
    int altUnit_;
};

}  // namespace

std::string airportText(const CKorvelDoc& document, const AirportRecord& airport) {
    const int altUnit = document.cockpitData().altUnit;
    std::string lines = placeText(document, airport);
    if (airport.elevationFt != kNoElevationFt)
        lines += formatText(kSheetTexts.placeElevation,
                            {std::string_view(altitudeText(airport.elevationFt, altUnit))}) +
                 '\n';
    if (const double variation = airport.magVariationDeg; variation != kNoAngle)
        lines +=
            formatText(kSheetTexts.placeVariation, {RoundToInt(std::abs(variation)),
                                                    std::string_view(variation < 0 ? "W" : "E")}) +
            '\n';
    for (const CommFreqRecord& comm : airport.comms)
        lines += commText(comm) + '\n';
    for (const RunwayRecord& runway : airport.runways)
        lines += runwayText(runway, altUnit) + '\n';
    return airport.info.empty() ? lines : lines + airport.info + '\n';
}

CAirportSheet::CAirportSheet(QWidget* parent, CKorvelDoc& document, const Look& look,
                             const std::shared_ptr<const AirportRecord>& airport)
    : PlaceSheet(parent, document, airport,
                 [&document, airport] { return airportText(document, *airport); }) {
    // The layout takes the picture.
    content().addWidget(new RunwayPicture(look, airport, document.cockpitData().altUnit), 0,
                        Qt::AlignTop);
    setPreferredWidth(15 * kRowPixels);
    if (landingRunways(*airport).empty() || !document.settings().apprMode)
        return;
    addButton(approach_, kSheetTexts.approachButton, [this, airport] {
        QDialog::accept();
        if (onApproach)
            onApproach(landingRunways(*airport));
    });
}

}  // namespace korvel
