#include "map/ground/GroundParts.h"

#include "cockpit/PlaceClass.h"
#include "config/Settings.h"

namespace korvel {

GroundParts GroundParts::from(const Settings& settings) {
    const MapPlaceOptions options = MapPlaceOptions::from(settings);
    const bool land = options.shows(PlaceLayerBit::BaseMap);
    const bool airspaces = options.shows(PlaceLayerBit::Airspaces);
    return {.land = land,
            .rivers = land && !options.shows(PlaceLayerBit::HideRivers),
            .borders = land && !options.shows(PlaceLayerBit::HideBorders),
            .relief = land && options.shows(PlaceLayerBit::Terrain) &&
                      !options.shows(PlaceLayerBit::HideRelief),
            .airspaces = airspaces,
            .airspaceWords = airspaces && options.labels(PlaceLayerBit::Airspaces)};
}

}  // namespace korvel
