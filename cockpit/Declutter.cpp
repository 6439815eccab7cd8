#include "cockpit/Declutter.h"

#include <initializer_list>

#include "cockpit/PlaceClass.h"
#include "config/Settings.h"

namespace korvel {
namespace {

unsigned bitOf(PlaceLayerBit layer) { return 1U << static_cast<unsigned>(layer); }

}  // namespace

Declutter declutterOf(int number) {
    return number == 1 ? Declutter::Medium : number == 2 ? Declutter::Plain : Declutter::Full;
}

Declutter nextDeclutter(Declutter step) {
    return step == Declutter::Full     ? Declutter::Medium
           : step == Declutter::Medium ? Declutter::Plain
                                       : Declutter::Full;
}

void declutter(Settings& settings, Declutter step) {
    if (step == Declutter::Full)
        return;
    auto mask = static_cast<unsigned>(settings.mapMask);
    const auto without = [&mask](std::initializer_list<PlaceLayerBit> layers) {
        for (const PlaceLayerBit layer : layers)
            mask &= ~(bitOf(layer) | bitOf(layer) << kLayerLabelsAbove);
    };
    without({PlaceLayerBit::Vors, PlaceLayerBit::CompassRoses, PlaceLayerBit::Ndbs,
             PlaceLayerBit::Fixes, PlaceLayerBit::VisualPoints});
    mask |= bitOf(PlaceLayerBit::HideObstacles);
    if (step == Declutter::Plain) {
        without({PlaceLayerBit::Airports, PlaceLayerBit::Runways, PlaceLayerBit::Airspaces});
        mask |= bitOf(PlaceLayerBit::HideTowns);
    }
    settings.mapMask = static_cast<int>(mask);
}

}  // namespace korvel
