#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlanWaypoint.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/user/UserRecordStore.h"
#include "platform/VirtualClock.h"

namespace korvel {

inline GeoPoint degrees(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

/// The texts of the entries, a space between them.
inline std::string textsOf(const std::vector<PlanWaypoint>& entries) {
    std::string texts;
    for (const PlanWaypoint& entry : entries) texts += (texts.empty() ? "" : " ") + entry.text;
    return texts;
}

/// A database without files that knows what a test tells it.
class PlacesFixture : public testing::Test {
 protected:
    PlacesFixture() { database_.setUserRecords(&places_); }

    void place(std::string_view key, double latDeg, double lonDeg) {
        std::unique_ptr<DatabaseRecord> record;
        switch (key.front()) {
            case 'a':
                record = std::make_unique<AirportRecord>();
                break;
            case 'v':
                record = std::make_unique<VorRecord>();
                break;
            default:
                record = std::make_unique<FixRecord>();
                break;
        }
        record->key = key;
        record->ident.assign(identOfKey(key));
        record->SetName(std::string(identOfKey(key)) + " name");
        record->position = degrees(latDeg, lonDeg);
        places_.add(std::move(record));
    }

    VirtualClock clock_;
    UserRecordStore places_;
    NavDatabase database_{clock_};
    GeneratedFixes fixes_;
};

}  // namespace korvel
