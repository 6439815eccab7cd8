#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "GpsFixture.h"
#include "geo/Geodesy.h"
#include "receiver/Satellite.h"

namespace korvel { namespace {

constexpr std::string_view kRmc = "GPRMC,092204.999,A,4250.5589,S,14718.5084,E,10.5,89.68,211200,,";
constexpr std::string_view kGga = "GPGGA,092204.999,4730.0000,N,01015.0000,E,1,04,24.4,100.0,M,,,,0000";

double latDeg(const GpsFix& fix) { return fix.position.lat * kRadToDeg; }
double lonDeg(const GpsFix& fix) { return fix.position.lon * kRadToDeg; }

using SentenceReceiverTest = GpsTest;

TEST_F(SentenceReceiverTest, SaysWhyALineIsRefused) {
    const std::string good = sentence(kRmc);
    const struct {
        std::string line;
        std::string tag;  // empty: no trace at all
        std::uint32_t flags;
    } cases[] = {
        {good, " ok (delta 0)", 2},
        {good + "\r", " ok (delta 0)", 2},
        {good + "\rrest", " ok (delta 0)", 2},
        {"GPRMC,1*00", "", 0},
        {"", "", 0},
        {"\r", "", 0},
        {sentence("GPRMC,{"), " non-ascii chars", 0},
        {sentence("GPRMC,~"), " non-ascii chars", 0},
        {sentence("GPRMC,\x80"), " non-ascii chars", 0},
        {sentence("GPRMC,\t"), " non-ascii chars", 0},
        {"$GPRMC,1", " no checksum", 0},
        {"$GPRMC,1*5", " no checksum", 0},
        {good + " ", " no checksum", 0},
        {"$*", " no checksum", 0},
        {good.substr(0, good.size() - 1) + "Z", " checksum failed", 0},
        {"$GPRMC,1*ZZ", " checksum failed", 0},
        {sentence("GPGLL,1"), " not used", 2},
        {sentence("GNRMC,1"), " not used", 2},
        {sentence("gprmc,1"), " ok (delta 0)", 2},
        {"$*00", " not used", 2},
        {"$GPGSA,A,1,,,,,,,,,,,,,,,*1e", " ok (delta 0)", 2},
    };
    for (const auto& c : cases) {
        GpsInput input(clock_);
        input.store().setTracing(true);
        input.onSentence(c.line);
        const std::vector<std::string> lines = input.store().takeTrace();
        ASSERT_EQ(lines.size(), c.tag.empty() ? 0U : 1U) << c.line;
        if (!c.tag.empty()) { EXPECT_EQ(lines[0], c.line.substr(0, c.line.find('\r')) + ":" + c.tag); }
        EXPECT_EQ(input.store().copy().sentenceFlags, c.flags) << c.line;
    }
}

TEST_F(SentenceReceiverTest, KeepsTheNewestOfEachKindInOrderOfArrival) {
    input_.store().setTracing(true);
    input_.onSentence(sentence("GPRMC,1"));
    input_.onSentence(sentence("GPGGA,1"));
    clock_.advanceMs(250);
    input_.onSentence(sentence("GPRMC,2"));
    input_.onSentence(sentence("GPGSV,3,1"));
    const auto queue = input_.queue().lock();
    ASSERT_EQ(queue->sentences().size(), 2U) << "satellites are not wanted";
    EXPECT_EQ(queue->sentences()[0].text, sentence("GPGGA,1"));
    EXPECT_EQ(queue->sentences()[1].text, sentence("GPRMC,2"));
    EXPECT_EQ(trace()[2], sentence("GPRMC,2") + ": ok (delta 250)");
}

TEST_F(SentenceReceiverTest, SatelliteSentencesAccumulateWhileSomebodyLooks) {
    input_.satellitesForDisplay();
    for (int i = 0; i < 1000; ++i) {
        input_.onSentence(sentence("GPGSV,3,1"));
        input_.onSentence(sentence("GPRMC,1"));
    }
    EXPECT_LE(waiting(), 256U) << "bounded, should nobody drain the queue";
    EXPECT_GE(waiting(), 200U);
    decodeQueue();
    clock_.advanceMs(4999);
    input_.expireSatellitesWanted();
    input_.onSentence(sentence("GPGSV,3,1"));
    EXPECT_EQ(waiting(), 1U);
    decodeQueue();
    clock_.advanceMs(1);
    input_.expireSatellitesWanted();
    input_.onSentence(sentence("GPGSV,3,1"));
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(SentenceReceiverTest, SatellitesMakeRoomForEachOtherNeverThePosition) {
    input_.satellitesForDisplay();
    input_.onSentence(sentence("GPRMC,1"));
    input_.onSentence(sentence("GPGGA,1"));
    for (int i = 0; i < 300; ++i) input_.onSentence(sentence("GPGSV,3," + std::to_string(i)));
    input_.onSentence(sentence("GPGSA,1"));
    const auto queue = input_.queue().lock();
    for (const auto& [body, waits] : {std::pair{"GPRMC,1", 1}, {"GPGGA,1", 1}, {"GPGSA,1", 1}, {"GPGSV,3,299", 1},
             {"GPGSV,3,0", 0}})  // the oldest goes first
        EXPECT_EQ(std::ranges::count(queue->sentences(), sentence(body), &SentenceQueue::Waiting::text), waits) << body;
}

TEST_F(SentenceReceiverTest, AnswersAndHandsOver) {
    for (const char* line : {"ASTRAL", "ASTRAL\r", "ASTRALX", "ASTRAL\rX", "ASTRA", "astral"}) input_.onSentence(line);
    EXPECT_EQ(answers_, (std::vector<std::string>{"ASTRAL\r\n", "ASTRAL\r\n"}));
    input_.onSentence("$RPY,1,2,3\r");
    EXPECT_EQ(attitude_, std::vector<std::string>{"$RPY,1,2,3"});
}

using SentenceDecoderTest = GpsTest;

TEST_F(SentenceDecoderTest, RmcGivesPositionSpeedAndTrack) {
    clock_.advanceMs(700);
    feed(kRmc);
    const GpsFix told = fix();
    EXPECT_NEAR(latDeg(told), -(42 + 50.5589 / 60), 1e-9);
    EXPECT_NEAR(lonDeg(told), 147 + 18.5084 / 60, 1e-9);
    EXPECT_EQ(std::tuple(told.rmcPositionValid, told.groundSpeedKt, told.trackMag, told.magVariation),
        std::tuple(1, 10.5, 89.68, kNoAngle));
    EXPECT_EQ(std::tuple(told.positionTickMs, told.altitudeTickMs), std::tuple(clock_.tickMs(), kNeverStored));

    feed("GPRMC,,V,0000.00,N,00000.00,E,99,99,,,");
    EXPECT_EQ(fix().groundSpeedKt, 10.5) << "a receiver without a lock changes nothing";
    feed("GPRMC,1,A,,S,14718.5084,E,,,,,");
    EXPECT_EQ(fix().rmcPositionValid, 0);
    EXPECT_EQ(fix().groundSpeedKt, 10.5) << "empty fields leave values alone";
    EXPECT_EQ(fix().sentenceFlags, 2U | 8U);
}

TEST_F(SentenceDecoderTest, VariationTurnsTheTrack) {
    const struct {
        const char* tail;  // course and what follows
        double variation, trackMag;
    } cases[] = {{"10.0,010100,3.1,E", -3.1, 6.9}, {"10.0,010100,,E", -3.1, 6.9}, {"2.0,010100,3.0,E", -3.0, 359},
        {"358,010100,5,W,A", 5, 3}, {"10.0,010100,3.1,", kNoAngle, 10}, {"10.0,010100,3.1,e", kNoAngle, 10},
        {"1000,010100,3,W", 3, kNoAngle}};
    for (const auto& c : cases) {
        feed(std::string("GPRMC,1,A,4250.5589,S,14718.5084,E,0,") + c.tail);
        EXPECT_EQ(fix().magVariation, c.variation) << c.tail;
        EXPECT_NEAR(fix().trackMag, c.trackMag, 1e-9) << c.tail;
    }
    input_.decoder().setVariationLookup([](GeoPoint here) { return here.lat < -0.7 ? 16 : kNoAngle; });
    input_.decoder().ignoreReceiverVariation(true);
    feed("GPRMC,1,A,4250.5589,S,14718.5084,E,0,10.0,010100,3.1,E");
    EXPECT_NEAR(fix().trackMag, 354, 1e-9) << "the database's, east positive";
    EXPECT_NEAR(input_.magneticToTrue(354), 10, 1e-9);
}

TEST_F(SentenceDecoderTest, VtgPrefersKnots) {
    feed("GPVTG,54.7,T,34.4,M,005.5,N,010.2,K");
    EXPECT_EQ(fix().groundSpeedKt, 5.5);
    EXPECT_EQ(fix().trackMag, 54.7);
    feed("GPVTG,,T,,M,,N,100,K,A");
    EXPECT_NEAR(fix().groundSpeedKt, 53.99568, 1e-9);
    EXPECT_EQ(fix().trackMag, 54.7);
}

TEST_F(SentenceDecoderTest, AQualityWithoutAPositionIsNone) {
    feed("GPVTG,54.7,T,34.4,M,005.5,N,010.2,K");
    feed("GPGGA,1,,,,,1,04,1.2,100.0,M,,,,");
    EXPECT_EQ(fix().fixQuality, 0);
    EXPECT_FALSE(input_.hasFix(false));
}

TEST_F(SentenceDecoderTest, GgaCountsOnlyBesideRmcOrVtg) {
    feed(kGga);
    EXPECT_EQ(fix().fixQuality, 0) << "nothing has told of movement yet";
    EXPECT_NEAR(latDeg(fix()), 47.5, 1e-9);
    EXPECT_EQ(fix().altitudeFt, 328);
    EXPECT_EQ(fix().satsInUse, 4);
    EXPECT_FALSE(input_.hasFix(false));
    feed("GPVTG,54.7,T,34.4,M,005.5,N,010.2,K");
    feed(kGga);
    EXPECT_EQ(fix().fixQuality, 1);
    EXPECT_TRUE(input_.hasFix(false));
    EXPECT_FALSE(input_.hasFix(true));
    feed("GPGSA,A,3,1,2,3,,,,,,,,,,1,1,1");
    EXPECT_TRUE(input_.hasFix(true));
    feed("GPGSA,A,2,1,2,3,,,,,,,,,,1,1,1");
    EXPECT_FALSE(input_.hasFix(true));

    feed(kRmc);
    feed(kGga);
    EXPECT_NEAR(latDeg(fix()), -(42 + 50.5589 / 60), 1e-9) << "RMC's position has the right of way";
    feed("GPGGA,1,,,,,0,00,,,M,,,,");
    EXPECT_EQ(fix().fixQuality, 0);
    EXPECT_EQ(fix().altitudeFt, 328);
}

TEST_F(SentenceDecoderTest, AltitudesThatNobodyFliesAtAreNotTold) {
    const auto gga = [](const std::string& metres) { return "GPGGA,1,4730.0,N,01015.0,E,1,04,1," + metres + ",M,,,,"; };
    for (const auto& [metres, feet] :
        {std::pair{"-0.2", 0}, {"-100", -328}, {"-609.6", -2000}, {"30480", 100000}, {"junk", 0}}) {
        feed(gga(metres));
        EXPECT_EQ(fix().altitudeFt, feet) << metres;
    }
    feed(gga("100"));
    const std::int64_t told = clock_.tickMs();
    clock_.advanceMs(1000);
    for (const char* metres : {"nan", "inf", "-inf", "1e300", "1e999", "-610", "30481", ""}) {
        feed(gga(metres));
        EXPECT_EQ(fix().altitudeFt, 328) << metres;
        EXPECT_EQ(fix().altitudeTickMs, told) << metres << " is no news";
    }
}

TEST_F(SentenceDecoderTest, WhatIsNoFiniteNumberCountsAsEmpty) {
    feed("GPRMC,1,A,4730.0,N,01015.0,E,10.5,89.68,211200,3,W");
    const GpsFix good = fix();
    clock_.advanceMs(1000);
    feed("GPRMC,1,A,nan,N,01015.0,E,inf,-inf,211200,nan,W");
    feed("GPVTG,nan,T,,M,nan,N,inf,K");
    EXPECT_EQ(fix().rmcPositionValid, 0) << "GGA's may be taken";
    const auto values = [](const GpsFix& of) {
        return std::tuple(of.position, of.groundSpeedKt, of.trackMag, of.magVariation, of.positionTickMs,
            of.groundSpeedTickMs, of.trackTickMs);
    };
    EXPECT_TRUE(values(fix()) == values(good));
    feed("GPVTG,,T,,M,nan,N,100,K");
    EXPECT_NEAR(fix().groundSpeedKt, 53.99568, 1e-9) << "the other unit";
}

TEST_F(SentenceDecoderTest, ValuesAreAsOldAsTheirSentenceHoweverLateItIsDecoded) {
    const std::int64_t arrived = clock_.tickMs();
    input_.onSentence(sentence(kRmc));
    clock_.advanceMs(4000);
    decodeQueue();
    EXPECT_EQ(fix().positionTickMs, arrived);
}

TEST_F(SentenceDecoderTest, SatelliteCycleFillsTheTable) {
    input_.satellitesForDisplay();
    feed("GPGSA,A,3,15,,,,,,,,,,,40,1,1,1");
    feed("GPGSV,3,1,12,15,45,200,38,02,-5,010,,03,01,359,20,,,,");
    feed("GPGSV,3,3,12,40,90,001,50");
    const SatelliteWords table = fix().satellites;
    EXPECT_EQ(table[0], (((45U << 9 | 200U) << 8 | 38U) << 8 | 15U) | 0x80U);
    EXPECT_EQ(table[1], ((91U << 9 | 10U) << 8 | 0U) << 8 | 2U) << "below the horizon";
    EXPECT_EQ(table[2], ((1U << 9 | 359U) << 8 | 20U) << 8 | 3U);
    EXPECT_EQ(table[3], 0U);
    EXPECT_EQ(table[8], (((90U << 9 | 1U) << 8 | 50U) << 8 | 40U) | 0x80U);

    feed("GPGSV,1,1,02,15,45,200,38,02,45,010,20");
    EXPECT_EQ(fix().satellites[0], ((45U << 9 | 200U) << 8 | 38U) << 8 | 15U) << "the used list ends with its cycle";
    EXPECT_EQ(fix().satellites[8], 0U);
}

TEST(Satellites, AreUnpackedInTheOrderOfTheirSlots) {
    const auto word = [](unsigned number, bool used, unsigned signal, unsigned azimuth, unsigned elevation) {
        return (((elevation << 9U | azimuth) << 8U | signal) << 8U | number) | (used ? 0x80U : 0U);
    };
    SatelliteWords words{};
    words[1] = word(31, false, 0, 359, 91);
    words[4] = word(127, true, 255, 0, 0);
    words[11] = word(2, true, 44, 45, 60);
    const std::vector<Satellite> expected{{31, false, 0, 359, 91}, {127, true, 255, 0, 0}, {2, true, 44, 45, 60}};
    EXPECT_EQ(unpackSatellites(words), expected);
    EXPECT_FALSE(expected[0].inSky()) << "below the horizon";
    EXPECT_FALSE(expected[1].inSky()) << "place unknown";
    EXPECT_TRUE(expected[2].inSky());
}

TEST_F(SentenceDecoderTest, OddSatelliteSentencesStayWithinTheTable) {
    input_.satellitesForDisplay();
    for (const char* numbers : {"4,4", "0,0", "-1,-1", "2147483647,2147483647", "-2147483648,-2147483648"}) {
        feed("GPGSV,3,1,12,15,45,200,38");
        feed(std::string("GPGSV,") + numbers + ",12,16,45,200,38");
        EXPECT_EQ(fix().satellites[0] & 0x7FU, 15U) << numbers << " completes the cycle";
        for (std::size_t i = 1; i < kSatelliteSlots; ++i) EXPECT_EQ(fix().satellites.at(i), 0U) << numbers;
    }
    feed("GPGSV,1,1,1,-99999999999,999,-999,999");
    EXPECT_EQ(fix().satellites[0], ((999U & 0x7F) << 25) | ((0U - 999U) & 0x1FF) << 16 | (999U & 0xFF) << 8);
}

TEST_F(SentenceDecoderTest, TooShortSentencesChangeNothing) {
    struct Case {
        const char* body;
        const char* tag;
    };
    input_.satellitesForDisplay();
    input_.store().setTracing(true);
    for (const Case& c : {Case{"GPRMC,1,A,4250.5589,S,14718.5084,E,10.5,89.68,211200,", " RMC FAILED"},
             Case{"GPVTG,1,T,2,M,3,N,4", " VTG FAILED"}, Case{"GPGGA,1,4730.0,N,01015.0,E,1,04,1,9,M,,", " GGA FAILED"},
             Case{"GPGSA,A,3,1,2,3,,,,,,,,,,1,1", " GSA FAILED"}, Case{"GPGSV,1,1,01", " GSV FAILED"},
             Case{"GPGSV,3,1,12,1,2,3,4,1,2,3,4,1,2,3,4,1,2,3", " GSV FAILED"},
             Case{"GPRMC,1,V,,,,,,,,,", " RMC NOT LOCKED"}}) {
        feed(c.body);
        const std::vector<std::string> lines = trace();
        ASSERT_EQ(lines.size(), 2U) << c.body;
        EXPECT_EQ(lines[1], sentence(c.body) + ":" + c.tag);
        EXPECT_FALSE(IsValid(fix().position)) << c.body;
        EXPECT_EQ(fix().fix3D, 0);
    }
}

TEST_F(SentenceDecoderTest, SimulatorShutsTheReceiverOut) {
    otherSource_.active = true;
    feed(kRmc);
    EXPECT_FALSE(IsValid(fix().position));
    EXPECT_TRUE(input_.hasFix(true));
    input_.setAltitudeOffsetFt(-120);
    EXPECT_EQ(input_.correctedAltitudeFt(), 4380);
    input_.setAltitudeOffsetFt(kNoAltitudeOffset);
    EXPECT_EQ(input_.correctedAltitudeFt(), 4500);
}

TEST(SbasStart, IsDecidedOnceByPlaceAndSpeed) {
    const std::string both[] = {"$PSRF151,01*0F\r\n", "$PSRF103,05,00,00,01*21\r\n"};
    const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
        {"COM6:,38400,N,8,1", "4000.0,N,10000.0,W", {both[0], both[1]}},
        {"COM6:,38400,N,8,1", "4000.0,N,01000.0,E", {both[1]}},
        {"COM6:,38400,N,8,1", "4000.0,S,10000.0,W", {}},
        {"COM6:,9600,N,8,1", "4000.0,N,10000.0,W", {}},
        {"COM6:,38400", "4000.0,N,10000.0,W", {}},
        {"", "4000.0,N,10000.0,W", {}},
    };
    for (const auto& [port, position, sent] : cases) {
        VirtualClock clock;
        GpsInput input(clock);
        input.decoder().setPort(port);
        std::vector<std::string> commands;
        for (int repeat = 0; repeat < 2; ++repeat) {
            const std::string gga = sentence("GPGGA,1," + std::string(position) + ",1,04,1,9,M,,,,");
            input.decoder().decodeSentence(gga, clock.tickMs());
            for (std::string& command : input.decoder().takeCommands()) commands.push_back(std::move(command));
        }
        EXPECT_EQ(commands, sent) << port << " at " << position;
    }
}

TEST_F(SentenceDecoderTest, LogsEndWhereAnotherDecoderSaysTheyDo) {
    struct Case {
        const char* file;
        double lat, lon;  // degrees, where gpsd puts the receiver at the end
        int altitudeFt, fixQuality, satsInUse;
    };
    for (const Case& c : {Case{"garmin25lp.log", 42.356496667, 13.367966667, 2447, 1, 3},
             Case{"navika-100-fix.log", 37.965442500, -122.532424333, 30, 1, 5},
             Case{"ublox-lea-5h.log", 51.925886167, 4.577625333, 4, 1, 8}}) {
        GpsInput input(clock_);
        std::ifstream log(std::string(KORVEL_TEST_DATA "/nmea/") + c.file, std::ios::binary);
        ASSERT_TRUE(log) << c.file;
        for (std::string line; std::getline(log, line);) {
            input.onSentence(line);
            input.decode(*input.queue().lock());
        }
        const GpsFix end = input.store().copy();
        EXPECT_NEAR(latDeg(end), c.lat, 1e-7) << c.file;
        EXPECT_NEAR(lonDeg(end), c.lon, 1e-7) << c.file;
        EXPECT_EQ(std::tuple(end.altitudeFt, end.fixQuality, end.satsInUse),
            std::tuple(c.altitudeFt, c.fixQuality, c.satsInUse))
            << c.file;
    }
}

}}  // namespace korvel
