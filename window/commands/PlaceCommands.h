#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QMenu>

#include "geo/GeoPoint.h"
#include "nav/approach/LandingRunway.h"
#include "navdb/records/DatabaseRecord.h"
#include "paint/MapColorCache.h"
#include "qtpaint/LabelCache.h"
#include "window/commands/CommandHost.h"
#include "window/sheets/PlaceChoice.h"

namespace korvel {

class PlaceSheet;

/// What a pilot asks about places: what one has, where one is, and which are his own.
class PlaceCommands {
 public:
    /// Both outlive this.
    PlaceCommands(CommandHost& host, LabelCache& labels, const ColorScheme& scheme)
        : host_(host), labels_(labels), colors_(scheme) {}

    /// Call after the colour scheme was reloaded.
    void schemeChanged(const ColorScheme& scheme) { colors_.refresh(scheme); }

    /// Adds the commands to the menu Navigate.
    void addTo(QMenu& menu);
    /// Adds what the map's symbols mean.
    void addLegendTo(QMenu& menu);

    void find();
    /// Where the aircraft is, or the middle of a map that was moved.
    void mark();
    void listMarks();
    void mark(GeoPoint where);
    /// Tells all of a place; null says that there is none.
    void open(std::unique_ptr<DatabaseRecord> record);

    /// The pilot wants to fly direct to the place.
    std::function<void(const PlaceChoice& place)> onDirectTo;
    /// The pilot wants to land on one of these runways.
    std::function<void(std::vector<LandingRunway>)> onApproach;

 private:
    std::unique_ptr<PlaceSheet> sheetFor(const std::shared_ptr<DatabaseRecord>& record);

    CommandHost& host_;
    LabelCache& labels_;
    MapColorCache colors_;
};

}  // namespace korvel
