#pragma once

#include <cstdint>
#include <functional>

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// What the map needs to know of a place, without the record's texts.
struct Place {
    GeoPoint position;
    KindMask kind = 0;        ///< kVorKind, kNdbKind, kFixKind or kAirportKind
    std::uint32_t flags = 0;  ///< AirportFlag of an airport, Usage of a navaid or fix
    bool pastDate = false;    ///< as in DatabaseRecord
    Ident ident{};
    RowMatch match;  ///< file is RecordOrigin::kNoFile for user records
};

/// Whether a search keeps a place, which has no identifier yet; empty keeps all. It is asked while
/// no lock of the database is held.
using PlaceFilter = std::function<bool(const Place&)>;

struct NearPlace {
    Place place;
    double distanceNm = 0.0;
};

/// A stretch of the sphere between two latitudes and, eastwards, from one longitude to another;
/// degrees. It crosses 180 degrees when west is greater than east, and goes all the way round when
/// east - west is 360 or more.
struct GeoBox {
    double south = 0.0;
    double west = 0.0;
    double north = 0.0;
    double east = 0.0;

    /// Degrees from the western edge eastwards to the eastern one.
    [[nodiscard]] double widthDeg() const {
        return east < west ? east - west + 360.0 : east - west;
    }
};

}  // namespace korvel
