#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "nav/approach/LandingRunway.h"
#include "navdb/records/AirportRecord.h"
#include "window/sheets/PlaceSheet.h"

namespace korvel {

class LabelCache;
class MapColorCache;

/// What a pilot asks of an airport, as lines of text: what is known of any place, elevation,
/// variation, frequencies and runways.
std::string airportText(const CKorvelDoc& document, const AirportRecord& airport);

/// An airport: its text beside a picture of its runways.
class CAirportSheet final : public PlaceSheet {
 public:
    /// What the runways are drawn with.
    struct Look {
        LabelCache& labels;
        const MapColorCache& colors;
    };

    /// Document and look outlive the sheet; the record holds its runways and frequencies already.
    CAirportSheet(QWidget* parent, CKorvelDoc& document, const Look& look,
                  const std::shared_ptr<const AirportRecord>& airport);

    /// The pilot wants to land on one of these runways.
    std::function<void(std::vector<LandingRunway>)> onApproach;

 private:
    QPushButton approach_;
};

}  // namespace korvel
