#include <gtest/gtest.h>

#include "navdb/file/DatabaseTables.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/records/RecordKey.h"

namespace korvel { namespace {

TEST(RecordKeyTest, PutsTheKindInFront) {
    EXPECT_EQ(makeRecordKey(kVorKind, "OAK"), "v.OAK");
    EXPECT_EQ(makeRecordKey(kNdbKind, "OAK"), "n.OAK");
    EXPECT_EQ(makeRecordKey(kFixKind, "OAK"), "f.OAK");
    for (const KindMask kind : {8U, 16U, 24U}) EXPECT_EQ(makeRecordKey(kind, "KOAK"), "a.KOAK");
    EXPECT_EQ(makeRecordKey(3, "OAK"), "");
    EXPECT_EQ(identOfKey("v.OAK"), "OAK");
    EXPECT_EQ(identOfKey("x.OAK"), "x.OAK");
    EXPECT_FALSE(hasKindPrefix("a"));
    EXPECT_EQ(otherSpelling("KOAK", 'K'), "OAK");
    EXPECT_EQ(otherSpelling("KAL", 'K'), "KKAL");
    EXPECT_EQ(otherSpelling("OAK", 'K'), "KOAK");
}

TEST(RecordTest, PrintsFrequencies) {
    const std::vector<std::tuple<float, std::string, std::string>> cases{{113.9F, "113.9", "113.9"},
        {115.0F, "115.0", "115"}, {375.0F, "375.0", "375"}, {415.5F, "415.5", "415.5"}, {117.95F, "117.95", "117.95"},
        {0.0F, "", ""}, {1000.0F, "1000.0", "1000"}, {0.00001F, "0.0", "0"}};
    for (const auto& [frequency, asVor, asNdb] : cases) {
        VorRecord vor;
        NdbRecord ndb;
        vor.frequency = ndb.frequency = frequency;
        EXPECT_EQ(vor.GetInfoText(), asVor) << frequency;
        EXPECT_EQ(ndb.GetInfoText(), asNdb) << frequency;
    }
}

TEST(RecordTest, KeepsTwentyCharactersOfANameAndClonesDeeply) {
    const std::string longName = "A name of twenty-five ch.";
    AirportRecord airport;
    airport.SetName(longName);
    airport.runways.resize(1);
    airport.runways[0].surface = "ASPH";
    airport.flags = kAirportHeliport | kAirportPrivate;
    const auto copy = airport.Clone();
    airport.SetName("other");
    EXPECT_EQ(copy->GetName(), longName.substr(0, 20));
    EXPECT_EQ(copy->GetKind(), 24U);
    EXPECT_EQ(dynamic_cast<const AirportRecord&>(*copy).runways.at(0).surface, "ASPH");
    EXPECT_EQ(copy->GetInfoText(), "Heliport, private");
    EXPECT_EQ(AirportRecord().GetInfoText(), "");

    FixRecord fix;
    fix.ident.assign("TWELVELETTER");
    EXPECT_EQ(fix.GetName(), "TWELVELETTE");
    fix.SetName(longName);
    EXPECT_EQ(fix.Clone()->GetName(), longName);
}

}}  // namespace korvel
