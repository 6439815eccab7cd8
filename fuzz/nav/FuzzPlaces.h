#pragma once

#include <memory>
#include <string>

#include "geo/Geodesy.h"
#include "nav/plan/GeneratedFixes.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/FixRecord.h"
#include "navdb/user/UserRecordStore.h"
#include "platform/VirtualClock.h"

namespace korvel {

/// A small world of fixes named A to P, four in a row.
struct FuzzPlaces {
    FuzzPlaces() {
        for (int i = 0; i < 16; ++i) {
            auto fix = std::make_unique<FixRecord>();
            fix->ident.assign(std::string(1, static_cast<char>('A' + i)));
            fix->key = "f." + std::string(fix->ident.view());
            fix->position = {i / 4 * kDegToRad, i % 4 * kDegToRad + i * 1e-3};
            records.add(std::move(fix));
        }
        database.setUserRecords(&records);
    }

    VirtualClock clock;
    UserRecordStore records;
    NavDatabase database{clock};
    GeneratedFixes generated;
};

}  // namespace korvel
