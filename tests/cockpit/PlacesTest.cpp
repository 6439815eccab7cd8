#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Cockpit.h"
#include "cockpit/NearAirports.h"
#include "cockpit/PlaceClass.h"
#include "config/Settings.h"
#include "geo/Variation.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/user/UserRecordStore.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

Place placeOf(KindMask kind, std::uint32_t flags) {
    Place place;
    place.kind = kind;
    place.flags = flags;
    return place;
}

TEST(PlaceClass, SaysWhatShowsHowFarOut) {
    const struct {
        KindMask kind;
        std::uint32_t flags;
        int toNm;                ///< the largest range at which it shows, 0 for none
        int toNmWithEverything;  ///< with all options on
    } cases[] = {{kAirportKind, kAirportTower | kAirportHardSurface, 1000, 1000},
        {kAirportKind, kAirportTower | kAirportHardSurface | kAirportPrivate, 0, 1000},
        {kAirportKind, kAirportHardSurface, 500, 500}, {kAirportKind, 0, 65, 65},
        {kAirportKind, kAirportHeliport | kAirportTower | kAirportHardSurface, 15, 15}, {kVorKind, kUsageHigh, 0, 250},
        {kVorKind, kUsageBoth, 250, 250}, {kNdbKind, kUsageLow, 65, 65}, {kFixKind, kUsageLow, 25, 25},
        {kFixKind, kUsageTerminal, 4, 4}, {kFixKind, kUsageVisual, 0, 25}};
    const MapPlaceOptions everything{.highNavaids = true, .visualPoints = true, .privateAirports = true};
    const auto reach = [](const Place& place, const MapPlaceOptions& options) {
        int toNm = 0;
        for (const int rangeNm : {1, 4, 15, 25, 65, 250, 500, 1000})
            if (isShown(place, classOf(place), rangeNm, options)) toNm = rangeNm;
        return toNm;
    };
    for (const auto& each : cases) {
        const Place place = placeOf(each.kind, each.flags);
        EXPECT_EQ(reach(place, {}), each.toNm) << each.kind << " " << each.flags;
        EXPECT_EQ(reach(place, everything), each.toNmWithEverything) << each.kind;
        EXPECT_EQ(reach(place, {.classMask = 0}), 0) << each.kind;
    }
    for (const auto& [flags, toNm] :
        {std::pair{0U, 15}, {kAirportHardSurface, 15}, {kAirportTower | kAirportHardSurface, 1000}}) {
        Place strip = placeOf(kAirportKind, flags);
        strip.ident.assign("GB-0123");
        EXPECT_EQ(reach(strip, {}), toNm) << "nobody calls a field by such a number";
    }
}

TEST(PlaceClass, NavaidsRotateThroughTheSetsThatAreEnabled) {
    Settings settings;
    settings.highNavaids = settings.vrpNavaids = true;
    const auto shown = [&settings](KindMask kind, std::uint32_t flags) {
        const Place place = placeOf(kind, flags);
        return isShown(place, classOf(place), 4, MapPlaceOptions::from(settings));
    };
    const auto all = [&] {
        std::string list;
        for (const auto& [flags, letter] : {std::pair{kUsageLow, 'l'}, {kUsageHigh, 'h'}, {kUsageBoth, 'b'},
                 {kUsageTerminal, 't'}, {kUsageVisual, 'v'}})
            if (shown(kFixKind, flags)) list += letter;
        EXPECT_TRUE(shown(kAirportKind, kAirportHardSurface) && shown(kFixKind, kUsageMarked));
        return list;
    };
    NavaidSet set = NavaidSet::Low;
    for (const char* expected : {"lhbtv", "hb", "t", "v", "", "lhbtv"}) {
        settings.rotateModes = {static_cast<int>(set), 4, 4};
        EXPECT_EQ(all(), expected);
        set = nextNavaidSet(set, settings);
    }
    settings.rotateModes = {4, 3, 2};  // two sets at once
    EXPECT_EQ(all(), "tv");
    settings.rotateNavaids = false;
    EXPECT_EQ(all(), "lhbtv");
    settings.highNavaids = settings.vrpNavaids = false;
    EXPECT_EQ(nextNavaidSet(NavaidSet::Low, settings), NavaidSet::Term);
    EXPECT_EQ(nextNavaidSet(NavaidSet::Term, settings), NavaidSet::Off);
}

TEST(NearAirports, CarryWhatThePilotAsksFor) {
    TestDatabase file;
    file.addAirport("EDAA", 50, 8.5, "Aaheim");
    file.addRunwayEnd("EDAA", 1, "18", 2500);
    file.addRunwayEnd("EDAA", 1, "36", 2500);
    file.addRunwayEnd("EDAA", 2, "07", 4100);
    file.addRunwayEnd("EDAA", 2, "25", 4100);
    file.addComm("EDAA", "ATIS", 127.35);
    file.addComm("EDAA", "CTAF/UNICOM", 122.8);
    file.addComm("EDAA", "UNTOWERED", 118.9);
    file.addComm("EDAA", "Aaheim Tower (18/36)", 118.1);
    file.addAirport("EDBB", 51, 8);
    const TempFolder folder;
    const VirtualClock clock;
    NavDatabase database(clock);
    ASSERT_EQ(database.openFile(file.write(folder.path(), "places.ng2")), "");
    UserRecordStore records;
    for (const auto& [ident, lon, flags] : {std::tuple{"HELI", 8.1, kAirportHeliport}, {"OWN", 8.2, kAirportPrivate}}) {
        auto airport = std::make_unique<AirportRecord>();
        airport->ident.assign(ident);
        airport->key = std::string("a.") + ident;
        airport->position = atDegrees(50, lon);
        airport->flags = flags;
        records.add(std::move(airport));
    }
    database.setUserRecords(&records);
    const Variation variation{.databaseDeg = 2};
    std::vector<NearAirport> found;
    findNearAirports(database, atDegrees(50, 8), variation, {}, found);
    ASSERT_EQ(found.size(), 2U);
    NearAirport first = found[0];
    EXPECT_NEAR(std::exchange(first.distanceNm, 0), 19.28, 0.02);
    EXPECT_NEAR(std::exchange(first.bearingMagDeg, 0), 89.8 - 2, 0.1);
    EXPECT_EQ(first, (NearAirport{.key = "a.EDAA",
                         .ident = "EDAA",
                         .name = "Aaheim",
                         .position = first.position,
                         .elevationFt = 431,
                         .longestRunwayFt = 4100,
                         .surface = "ASPH",
                         .hard = true,
                         .runway = "07/25",
                         .frequency = "TWR 118.100",
                         .frequencies = {"TWR 118.100", "CTAF 122.800"}}));
    EXPECT_EQ(found[1].frequency, "");
    EXPECT_EQ(found[1].longestRunwayFt, std::nullopt);
    findNearAirports(
        database, atDegrees(50, 8), variation, {.count = 2, .heliports = true, .privateAirports = true}, found);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].ident + found[1].ident, "HELIOWN");
    EXPECT_EQ(found[0].elevationFt, std::nullopt);
}

}}  // namespace korvel
