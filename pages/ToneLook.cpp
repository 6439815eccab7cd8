#include "pages/ToneLook.h"

namespace korvel {

ToneLook toneLook(std::optional<AlarmUrgency> urgency, const MapColorCache& colors) {
    const ColorValue ground = colors[ColorKey::MapBackground];
    const ColorValue ink = colors[ColorKey::HsiNumeral];
    if (urgency == AlarmUrgency::Warning)
        return {colors[ColorKey::MapObstacleDanger], ground, colors[ColorKey::MapObstacleDanger]};
    if (urgency == AlarmUrgency::Caution)
        return {colors[ColorKey::GeoWarning], ground, ink};
    if (urgency == AlarmUrgency::Notice) {
        const ColorValue box = colors[ColorKey::MapInfoBackground];
        return {box, box, colors[ColorKey::MapInfoText]};
    }
    return {ground, ground, ink};
}

}  // namespace korvel
