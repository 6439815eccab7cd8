#include <map>

#include <gtest/gtest.h>

#include "GpsFixture.h"
#include "geo/Geodesy.h"
#include "platform/FileIo.h"
#include "receiver/gdl90/Gdl90Receiver.h"

namespace korvel { namespace {

using Bytes = std::vector<std::uint8_t>;

std::string framed(const Bytes& message) { return gdl90Frame(message); }

struct Cut {
    std::vector<Bytes> messages;
    std::int64_t badFrames = 0;
};
Cut cut(const std::string& stream, std::size_t chunk = 1000) {
    Cut result;
    Gdl90Frames frames;
    for (std::size_t at = 0; at < stream.size(); at += chunk)
        frames.take(stream.substr(at, chunk), [&](Gdl90Bytes m) { result.messages.emplace_back(m.begin(), m.end()); });
    frames.finish();
    result.badFrames = frames.badFrames();
    return result;
}

TEST(Gdl90Frames, CutsAStream) {
    const std::string heartbeat("\x7E\x00\x81\x41\xDB\xD0\x08\x02\xB3\x8B\x7E", 11);
    const Bytes clear = {0x00, 0x81, 0x41, 0xDB, 0xD0, 0x08, 0x02};
    EXPECT_EQ(framed(clear), heartbeat) << "the sum of the format's own description";
    const Bytes escaped = {0xCC, 0x7E, 0x7D, 0x20};
    struct Case {
        const char* what;
        std::string stream;
        std::vector<Bytes> messages;
        int bad;
    };
    std::string flipped = heartbeat;
    flipped[3] = 'x';
    const Case cases[] = {
        {"one", heartbeat, {clear}, 0},
        {"one flag between two", heartbeat + framed(escaped).substr(1), {clear, escaped}, 0},
        {"many flags", "~~" + heartbeat + "~", {clear}, 0},
        {"bytes before the first flag and behind the last", "ab" + heartbeat + "cd", {clear}, 2},
        {"no flag at all", "abc", {}, 1},
        {"a wrong sum", flipped + heartbeat, {clear}, 1},
        {"too short for a sum", "\x7E\x01\x02\x7E", {}, 1},
        {"a torn escape", "~\x01}~" + heartbeat, {clear}, 1},
        {"longer than any message", "~" + std::string(5000, 'x') + heartbeat, {clear}, 1},
        {"nothing", "", {}, 0},
    };
    for (const Case& c : cases)
        for (const std::size_t chunk : {1000U, 1U, 3U}) {
            const Cut result = cut(c.stream, chunk);
            EXPECT_EQ(result.messages, c.messages) << c.what << " in chunks of " << chunk;
            EXPECT_EQ(result.badFrames, c.bad) << c.what << " in chunks of " << chunk;
        }
}

/// At 47.5 N 8.25 W, 5000 ft pressure altitude, airborne on a true track of 90 degrees at 120 kt, descending.
Bytes ownReport() {
    return {10, 0x10, 0xAB, 0x45, 0x49, 0x21, 0xC7, 0x1C, 0xFA, 0x22, 0x22, 0x0F, 0x09, 0xA9, 0x07, 0x8F, 0xF8, 0x40, 1,
        'N', '1', '2', 0, 0, 0, 0, 0, 0x20};
}

TEST(Gdl90Message, ReadsTheOwnReportAndOthers) {
    const auto own = std::get<Gdl90Target>(*decodeGdl90(ownReport()));
    EXPECT_TRUE(own.isOwn && own.airborne && !own.extrapolated);
    EXPECT_EQ(own.address, 0xAB4549U);
    ASSERT_TRUE(own.position);
    EXPECT_NEAR(own.position->lat * kRadToDeg, 47.5, 3e-5);
    EXPECT_NEAR(own.position->lon * kRadToDeg, -8.25, 3e-5);
    EXPECT_EQ(own.pressureAltitudeFt, 5000);
    EXPECT_EQ(own.trackDeg, 90);
    EXPECT_FALSE(own.headingTrueDeg || own.headingMagneticDeg);
    EXPECT_EQ(own.groundSpeedKt, 120);
    EXPECT_EQ(own.verticalSpeedFpm, -512);
    EXPECT_EQ(std::tuple(own.alert, own.nic, own.nacp, own.emitterCategory, own.callSign, own.emergency),
        std::tuple(1, 10, 9, 1, "N12", 2));
    Bytes unknown = ownReport();
    unknown[0] = 20;
    unknown[11] = 0xFF, unknown[12] = 0xF2;                      // no altitude, a magnetic heading on the ground
    unknown[14] = 0xFF, unknown[15] = 0xF8, unknown[16] = 0x00;  // no speeds
    unknown.push_back(1);                                        // longer than it need be
    const auto other = std::get<Gdl90Target>(*decodeGdl90(unknown));
    EXPECT_FALSE(other.isOwn || other.airborne || other.pressureAltitudeFt || other.groundSpeedKt ||
                 other.verticalSpeedFpm || other.trackDeg);
    EXPECT_EQ(other.headingMagneticDeg, 90);
    Bytes nowhere = ownReport();
    for (int i = 5; i < 11; ++i) nowhere[static_cast<std::size_t>(i)] = 0;
    EXPECT_TRUE(std::get<Gdl90Target>(*decodeGdl90(nowhere)).position) << "0/0 with a NIC is a place";
    nowhere[13] = 0x09;
    EXPECT_FALSE(std::get<Gdl90Target>(*decodeGdl90(nowhere)).position);
}

TEST(Gdl90Message, ReadsHeightAttitudeAndDevice) {
    const auto beat = std::get<Gdl90Heartbeat>(*decodeGdl90(Bytes{0, 0xC1, 0x81, 0xDB, 0x50, 0, 0}));
    EXPECT_TRUE(beat.gpsValid && beat.maintenance && beat.utcOk);
    EXPECT_EQ(beat.timeS, 65536 + 0x50DB);
    const auto height = std::get<Gdl90GeometricAltitude>(*decodeGdl90(Bytes{11, 0xFF, 0xEC, 0x80, 0x0A}));
    EXPECT_EQ(
        std::tuple(height.altitudeFt, height.verticalWarning, height.vfomM), std::tuple(-100, true, std::optional(10)));
    EXPECT_FALSE(std::get<Gdl90GeometricAltitude>(*decodeGdl90(Bytes{11, 0, 0, 0x7F, 0xFF})).vfomM);
    const auto banked =
        std::get<Gdl90Attitude>(*decodeGdl90(Bytes{0x65, 1, 0xFF, 0x38, 0, 55, 0x87, 0x08, 0, 99, 0xFF, 0xFF}));
    EXPECT_NEAR(*banked.rollDeg, -20, 1e-9);
    EXPECT_NEAR(*banked.pitchDeg, 5.5, 1e-9);
    EXPECT_NEAR(*banked.headingDeg, 180, 1e-9);
    EXPECT_TRUE(banked.headingIsMagnetic);
    EXPECT_EQ(banked.indicatedAirspeedKt, 99);
    EXPECT_FALSE(banked.trueAirspeedKt);
    EXPECT_FALSE(decodeGdl90(Bytes{0x65, 1, 0x07, 0x09, 0, 0, 0, 0, 0, 0, 0, 0})) << "a roll of 180.1";
    EXPECT_FALSE(decodeGdl90(Bytes{11, 0, 0, 0})) << "too short";
    EXPECT_EQ(std::get<Gdl90Other>(*decodeGdl90(Bytes{0xCC, 1, 2})).bytes, 3U);
    Bytes device(39, 0);
    device[0] = 0x65, device[11] = 'S', device[12] = 'X', device[38] = 1;
    EXPECT_TRUE(std::get<Gdl90DeviceId>(*decodeGdl90(device)).geometricAltitudeIsMsl);
    EXPECT_EQ(std::get<Gdl90DeviceId>(*decodeGdl90(device)).name, "SX");
}

TEST(Geoid, IsReadFromItsTable) {
    const auto bytes = readWholeFile(KORVEL_GEOID);
    ASSERT_TRUE(bytes);
    EXPECT_FALSE(Geoid::fromBytes(bytes->substr(1)));
    const auto geoid = Geoid::fromBytes(*bytes);
    ASSERT_TRUE(geoid);
    struct Place {
        double lat, lon, heightM;
    };
    // EGM96 as published: the equator at Greenwich, Zurich, the deepest and the highest spots, a pole.
    for (const Place& p : {Place{0, 0, 17.2}, Place{47.4, 8.55, 47.4}, Place{4.7, 78.8, -106.5}, Place{-8, 147, 84.2},
             Place{90, 33, 13.6}})
        EXPECT_NEAR(geoid->heightM({p.lat * kDegToRad, p.lon * kDegToRad}), p.heightM, 2.5) << p.lat << "," << p.lon;
}

class Gdl90Test : public GpsTest, public SentenceListener {
 protected:
    void onLine(std::string_view line, std::int64_t arrivedMs) override { input_.onSentence(line, arrivedMs); }
    void hear(const Bytes& message) {
        receiver_.take(framed(message), clock_.tickMs(), *this);
        decodeQueue();
    }
    Gdl90Receiver receiver_;
};

TEST_F(Gdl90Test, MakesAFixOfTheOwnReport) {
    input_.countsNoSatellites(true);
    receiver_.setGeoid(Geoid::fromBytes(*readWholeFile(KORVEL_GEOID)));
    hear(ownReport());
    EXPECT_TRUE(input_.hasFix(false));
    EXPECT_FALSE(input_.hasFix(true)) << "the altitude of the report is the pressure's";
    EXPECT_EQ(fix().altitudeTickMs, kNeverStored);
    EXPECT_NEAR(fix().position.lat * kRadToDeg, 47.5, 3e-5);
    EXPECT_NEAR(fix().position.lon * kRadToDeg, -8.25, 3e-5);
    EXPECT_EQ(fix().groundSpeedKt, 120);
    EXPECT_EQ(fix().trackMag, 90);
    EXPECT_EQ(fix().satsInUse, 0) << "none are made up";
    hear({11, 0x04, 0xB0, 0, 10});  // 6000 ft
    hear(ownReport());
    EXPECT_TRUE(input_.hasFix(true));
    EXPECT_NEAR(fix().altitudeFt, 6000 - 52.5 * 3.2808, 8) << "above the sea, not the ellipsoid";
    Bytes device(39, 0);
    device[0] = 0x65, device[38] = 1;
    hear(device), hear(ownReport());
    EXPECT_NEAR(fix().altitudeFt, 6000, 1) << "the device says that it is above the sea";
    for (int i = 0; i < 6; ++i) hear(ownReport());
    EXPECT_FALSE(input_.hasFix(true)) << "the height has not come for long";
    hear({0, 0x01, 0x01, 0, 0, 0, 0}), hear(ownReport());
    EXPECT_FALSE(input_.hasFix(false)) << "the heartbeat says that the GPS is not valid";
    hear({0, 0x81, 0x01, 0, 0, 0, 0}), hear(ownReport());
    EXPECT_TRUE(input_.hasFix(false));
    hear({0x65, 1, 0, 100, 0, 55, 0xFF, 0xFF, 0, 99, 0xFF, 0xFF});
    ASSERT_TRUE(receiver_.attitude());
    EXPECT_NEAR(*receiver_.attitude()->values.rollDeg, 10, 1e-9);
    hear({11, 0x04, 0xB0, 0, 10});
    receiver_.forget();
    hear(ownReport());
    EXPECT_FALSE(input_.hasFix(true)) << "the height was another device's";
    hear({11, 0x04, 0xB0, 0, 10}), hear(ownReport());
    EXPECT_NEAR(fix().altitudeFt, 6000 - 52.5 * 3.2808, 8) << "that one told heights above the sea";
}

TEST(Gdl90, ReadsWhatARealDeviceSends) {
    const Cut result = cut(*readWholeFile(KORVEL_TEST_DATA "/gdl90/stratux.bin"), 100);
    EXPECT_EQ(result.messages.size(), 162U);
    EXPECT_EQ(result.badFrames, 0);
    for (const Bytes& message : result.messages) EXPECT_TRUE(decodeGdl90(message)) << int(message[0]);
}

}}  // namespace korvel
