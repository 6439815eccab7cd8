#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "cockpit/NearAirports.h"
#include "geo/Geodesy.h"
#include "platform/FileIo.h"
#include "platform/NetSocket.h"
#include "platform/RegistryProfile.h"
#include "receiver/FakePorts.h"
#include "receiver/GpsFixture.h"
#include "receiver/ReplaySource.h"
#include "receiver/gdl90/Gdl90Frames.h"

namespace korvel { namespace {

/// The document at work on a receiver that says what the test wants.
class CKorvelDocTest : public testing::Test {
 protected:
    void start(const char* port, bool portScanned = false) {
        profile_.setString(kOptionsSection, "Port", port);
        profile_.setInt(kOptionsSection, "PortScanned", portScanned ? 1 : 0);
        doc_ = std::make_unique<CKorvelDoc>(CKorvelDoc::Foundations{profile_, clock_, ports_.opener()});
        doc_->setTracing(true);
    }
    const CockpitData& data() const { return doc_->cockpitData(); }
    void tickAfter(std::int64_t ms) {
        clock_.advanceMs(ms);
        doc_->tick();
    }
    /// Sends the sentences through the port and ticks until the last of them has been decoded. The
    /// line that nobody uses behind them tells by its trace.
    void say(const std::vector<std::string>& bodies) {
        doc_->tick();  // opens the port
        for (const std::string& body : bodies) ports_.send(sentence(body) + "\r\n");
        ports_.send(sentence("KVEND") + "\r\n");
        const std::string end = sentence("KVEND") + ": not used";
        ASSERT_TRUE(eventually([&] {
            const std::vector<std::string> trace = doc_->takeTrace();
            return std::find(trace.begin(), trace.end(), end) != trace.end();
        }));
        doc_->tick();
    }

    static std::string rmc(const std::string& position) { return "GPRMC,1,A," + position + ",10.5,89.68,211200,,"; }
    static std::string gga(const std::string& position, int quality = 1) {
        return "GPGGA,1," + position + "," + std::to_string(quality) + ",04,1.2,100.0,M,,,,";
    }

    TempFolder folder_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    FakePorts ports_;
    std::unique_ptr<CKorvelDoc> doc_;
};

constexpr const char* kHere = "4730.0,N,01015.0,E";

TEST_F(CKorvelDocTest, WhatCannotBeKeptIsToldOnce) {
    std::filesystem::create_directory(folder_ / "track.journal");
    doc_ = std::make_unique<CKorvelDoc>(CKorvelDoc::Foundations{profile_, clock_, ports_.opener(), folder_.path()});
    const auto record = [this](double lat) {
        clock_.advanceMs(5000);
        doc_->flight().track().offer({lat, 0}, 0, 0, 0);
        return doc_->takeTrouble();
    };
    EXPECT_EQ(record(0.1), "Not recorded: track.journal cannot be written");
    EXPECT_EQ(record(0.2), "") << "as before";
    std::filesystem::remove(folder_ / "track.journal");
    EXPECT_EQ(record(0.3), "");
    EXPECT_EQ(doc_->flight().track().track()->read()->slots.size(), 3U) << "the recording never stopped";
}

TEST_F(CKorvelDocTest, ValuesVanishFiveSecondsAfterTheLastSentence) {
    start("COM3:,4800,N,8,1");
    say({rmc(kHere), gga(kHere)});
    ASSERT_TRUE(data().position);
    EXPECT_NEAR(data().position->lat * kRadToDeg, 47.5, 1e-9);
    EXPECT_EQ(data().groundSpeedKt, 10.5);
    EXPECT_NEAR(data().trackTrueDeg.value_or(0), 89.68, 1e-9);
    EXPECT_EQ(data().altitudeFt, 328);
    EXPECT_EQ(data().status, "");
    const GeoPoint last = *data().position;
    tickAfter(4999);
    EXPECT_TRUE(data().position && data().groundSpeedKt && data().trackMagDeg && data().altitudeFt);
    tickAfter(1);
    EXPECT_FALSE(
        data().position || data().groundSpeedKt || data().trackMagDeg || data().trackTrueDeg || data().altitudeFt);
    EXPECT_EQ(data().fixQuality, 0);
    EXPECT_NE(data().status, "");
    tickAfter(60000);
    EXPECT_EQ(data().lastPosition, last);
    EXPECT_EQ(data().positionAgeSec, 65);
}

TEST_F(CKorvelDocTest, ASentenceThatStaysAwayTakesItsValuesWithIt) {
    start("COM3:,4800,N,8,1");
    say({rmc(kHere), gga(kHere)});
    for (int second = 0; second < 5; ++second) {
        clock_.advanceMs(1000);
        say({gga(kHere)});
    }
    EXPECT_FALSE(data().position) << "the position was RMC's";
    EXPECT_FALSE(data().groundSpeedKt || data().trackMagDeg);
    EXPECT_EQ(data().altitudeFt, 328) << "GGA is still there";
    EXPECT_EQ(data().status, "No gps signal!");
}

TEST_F(CKorvelDocTest, OnlyAPositionWithAFixOnThisEarthIsLive) {
    const char* const zero = "0000.000,N,00000.000,E";
    const std::tuple<const char*, std::vector<std::string>, bool> cases[] = {
        {"no fix", {"GPRMC,1,V,0000.000,N,00000.000,E,0,0,,,", gga(zero, 0)}, false},
        {"no fix, called active", {rmc(zero), gga(zero, 0)}, false},
        {"no quality known", {rmc(zero)}, false},
        {"latitude 99", {rmc("9900.0,N,01015.0,E"), gga(kHere)}, false},
        {"longitude 181", {rmc("4730.0,N,18100.0,E"), gga(kHere)}, false},
        {"no number", {rmc("nan,N,inf,E"), gga("nan,N,inf,E")}, false},
        {"the very corner", {rmc("9000.0,S,18000.0,W"), gga(kHere)}, true},
        {"a fix where the meridian meets the equator", {rmc(zero), gga(zero)}, true},
    };
    for (const auto& [what, said, live] : cases) {
        SCOPED_TRACE(what);
        start("COM3:,4800,N,8,1");
        say(said);
        EXPECT_EQ(data().position.has_value(), live);
        EXPECT_EQ(data().lastPosition.has_value(), live);
        EXPECT_EQ(data().status.empty(), live) << data().status;
    }
}

TEST_F(CKorvelDocTest, InTwoDimensionsTheAltitudeIsNotShown) {
    const auto gsa = [](const char* kind) { return "GPGSA,A," + std::string(kind) + ",1,2,3,4,,,,,,,,,1,1,1"; };
    const auto counted = [](const char* satellites) {
        return "GPGGA,1," + std::string(kHere) + ",1," + satellites + ",1.2,100.0,M,,,,";
    };
    const std::tuple<const char*, std::vector<std::string>, bool> cases[] = {
        {"three dimensions", {counted("04"), gsa("3")}, true},
        {"two", {counted("07"), gsa("2")}, false},
        {"no kind told, four satellites", {counted("04")}, true},
        {"no kind told, three satellites", {counted("03")}, false},
        {"nothing told at all", {counted("")}, true},
    };
    for (const auto& [what, said, good] : cases) {
        SCOPED_TRACE(what);
        start("COM3:,4800,N,8,1");
        say({rmc(kHere)});
        say(said);
        EXPECT_TRUE(data().position);
        EXPECT_EQ(data().altitudeFt.has_value(), good);
        EXPECT_EQ(data().fix3D, good);
        EXPECT_EQ(doc_->receiverAltitudeFt().has_value(), good);
        doc_.reset();
    }
    start("COM3:,4800,N,8,1");
    say({rmc(kHere), gsa("2"), counted("07")});
    EXPECT_FALSE(data().altitudeFt);
    for (int second = 0; second < 5; ++second) {
        clock_.advanceMs(1000);
        say({rmc(kHere), counted("07")});
    }
    EXPECT_TRUE(data().altitudeFt) << "a kind that was told so long ago says nothing";
}

TEST_F(CKorvelDocTest, AltitudesFollowTheAltimeter) {
    start("COM3:,4800,N,8,1");
    folder_.write("x.UDB.TXT", "NAVAID_BEGIN\nID=XA\nNAME=N\nTYPE=FIX\nPOSN.LAT=47.8\nPOSN.LON=10.25\nNAVAID_END\n");
    doc_->loadDatabases(std::vector{folder_.path()});
    const auto fly = [&](int seconds) {
        for (; seconds > 0; --seconds) {
            clock_.advanceMs(1000);
            say({rmc(kHere), "GPGGA,1," + std::string(kHere) + ",1,05,1.2,1000.0,M,,,,"});
        }
    };
    fly(1);
    doc_->flight().navigation().DirectTo("XA", "", 300);
    fly(5);
    EXPECT_EQ(data().altitudeFt, 3280);
    EXPECT_EQ(data().verticalSpeedFpm, 0);
    const double before = doc_->flight().navigation().state().pathAngle;
    doc_->setAltimeterOffsetFt(500);
    for (int second = 0; second < 8; ++second) {
        fly(1);
        EXPECT_EQ(data().altitudeFt, 3780);
        EXPECT_EQ(data().verticalSpeedFpm.value_or(0), 0) << "nobody has climbed";
    }
    EXPECT_EQ(doc_->receiverAltitudeFt(), 3280);
    const double after = doc_->flight().navigation().state().pathAngle;
    EXPECT_NEAR(after / before, (3780.0 - 300) / (3280 - 300), 0.001) << "from the altitude that is read";
    doc_->flight().startSimulator({.position = *data().position, .altitudeFt = 2000});
    doc_->tick();
    EXPECT_EQ(data().altitudeFt, 2500) << "the simulator's altimeter reads the same";
    doc_->flight().stopSimulator();
    doc_->setAltimeterOffsetFt({});
    fly(1);
    EXPECT_EQ(data().altitudeFt, 3280);
    EXPECT_FALSE(data().altimeterOffsetFt);
}

TEST_F(CKorvelDocTest, NumbersThatAreNoneAreNotShown) {
    start("COM3:,4800,N,8,1");
    say({"GPRMC,1,A,4730.0,N,01015.0,E,inf,nan,211200,,", "GPGGA,1,,,,,1,04,1.2,-inf,M,,,,"});
    EXPECT_TRUE(data().position);
    EXPECT_FALSE(data().altitudeFt || data().groundSpeedKt || data().trackMagDeg || data().trackTrueDeg);
    // Where nobody flies nothing is told: the altitude before it ages away.
    for (const auto& [metres, shownFt] : {std::pair{"100.0", 328}, {"30479", 99996}, {"30481", 99996}, {"-609", -1998},
             {"-610", -1998}, {"99999999999", -1998}}) {
        say({"GPGGA,1," + std::string(kHere) + ",1,04,1.2," + metres + ",M,,,,"});
        EXPECT_EQ(data().altitudeFt, shownFt) << metres;
    }
}

TEST_F(CKorvelDocTest, MagneticAnglesKnowTheVariationOfTheirPlace) {
    start("COM3:,4800,N,8,1");
    for (const auto& [ident, lat, lon] : {std::tuple{"XA", "47", "-122"}, {"XB", "48", "-122"}, {"XC", "48", "7"}}) {
        folder_.write(std::string(ident) + ".UDB.TXT", "NAVAID_BEGIN\nID=" + std::string(ident) +
                                                           "\nNAME=N\nTYPE=FIX\nPOSN.LAT=" + lat + "\nPOSN.LON=" + lon +
                                                           "\nNAVAID_END\n");
    }
    const std::filesystem::path folders[] = {folder_.path()};
    doc_->loadDatabases(folders);
    const auto course = [&](std::size_t row) { return *data().plan->rows[row].courseMagDeg; };
    ASSERT_EQ(doc_->flight().plan().enterRoute("XA XB XC"), "");
    doc_->tick();
    ASSERT_FALSE(data().position);
    const double northwards = course(1);
    EXPECT_NEAR(northwards, 360 - 15.0, 0.7) << "15 degrees east near Seattle";
    say({rmc(kHere), gga(kHere)});
    EXPECT_NEAR(*data().variationDeg, 4.3, 0.6) << "in the Alps";
    EXPECT_NEAR(*data().trackMagDeg, 89.68 - *data().variationDeg, 0.01) << "of the first sentence as well";
    EXPECT_EQ(course(1), northwards) << "wherever the aircraft is";
}

TEST_F(CKorvelDocTest, ChangedPortIsOpenedStoredAndCountsAsChosen) {
    start("COM3:,4800,N,8,1", true);
    say({rmc(kHere), gga(kHere)});
    const std::uint64_t before = doc_->revision();
    Settings changed = doc_->settings();
    changed.port = "COM4:,9600,N,8,1";
    changed.ignoreMagVar = 1;
    doc_->applySettings(changed);
    EXPECT_GT(doc_->revision(), before);
    doc_->tick();
    EXPECT_EQ(ports_.openings(), (std::vector<std::string>{"COM3: 4800", "COM4: 9600"}));
    EXPECT_FALSE(data().position) << "the new port has told nothing yet";
    EXPECT_EQ(profile_.getInt(kOptionsSection, "IgnoreMagVar", 0), 1);
    EXPECT_EQ(profile_.getInt(kOptionsSection, "PortScanned", 1), 0);
    const auto stored = [&] { return parseProfile(*readWholeFile(profile_.path())); };
    EXPECT_EQ(stored().at("Options.Port"), "COM3:,4800,N,8,1") << "until the end of the run";
    ASSERT_TRUE(profile_.save());
    EXPECT_EQ(stored().at("Options.Port"), "COM4:,9600,N,8,1");
    clock_.advanceMs(60000);
    doc_->tick();
    EXPECT_EQ(ports_.openings().back(), "COM4: 9600") << "a chosen port is never given up";
}

TEST_F(CKorvelDocTest, TheAttitudeModulesPortFollowsItsSettingsAtOnce) {
    start("COM3:,4800,N,8,1");
    doc_->tick();
    Settings changed = doc_->settings();
    for (const char* port : {"COM7", "COM8", ""}) {
        changed.viaGyro = port[0] != 0 ? 1 : 0;
        changed.portGyro = port;
        changed.baudGyro = "57600";
        doc_->applySettings(changed);
        doc_->tick();
        EXPECT_EQ(data().status,
            std::string(port[0] != 0 ? port : "COM3") + (port[0] != 0 ? " 57600" : " 4800") + "\nNo Gps Rcvr Activity");
    }
    EXPECT_EQ(ports_.openings(), (std::vector<std::string>{"COM3: 4800", "COM7: 57600", "COM8: 57600", "COM3: 4800"}));
}

TEST_F(CKorvelDocTest, ThroughTheModuleTheReceiverSpeaksAndNothingIsSearchedOrStored) {
    profile_.setInt(kOptionsSection, "ViaGyro", 1);
    start("");
    doc_->tick();
    EXPECT_EQ(data().status, "The module's port is not set");
    Settings changed = doc_->settings();
    changed.portGyro = "COM7";
    changed.baudGyro = "57600";
    doc_->applySettings(changed);
    say({rmc(kHere), gga(kHere)});
    for (int pause = 0; pause < 4; ++pause) {
        EXPECT_EQ(data().status, "");
        clock_.advanceMs(9000);
        say({rmc(kHere), gga(kHere)});
    }
    EXPECT_TRUE(data().position);
    EXPECT_EQ(ports_.attempts(), std::vector<std::string>{"COM7:"});
    EXPECT_EQ(profile_.getString(kOptionsSection, "Port", ""), "");
    EXPECT_EQ(doc_->portLabel(), "COM7 57600");
    ports_.refuse("COM7:", kErrorFileNotFound);
    ports_.fail(kErrorDeviceFailure);
    EXPECT_TRUE(eventually([&] {
        doc_->tick();
        return data().status == "COM7 57600\nInvalid Port";
    }));
    ports_.refuse("COM7:", kNoError);
    ports_.fail(kNoError);
    clock_.advanceMs(60000);
    say({rmc(kHere), gga(kHere)});
    EXPECT_TRUE(data().position) << "found again";
}

TEST_F(CKorvelDocTest, TheModuleHasItsOwnPortBesideTheReceiver) {
    profile_.setString(kOptionsSection, "PortGyro", "COM7");
    profile_.setString(kOptionsSection, "BaudGyro", "57600");
    ports_.refuse("COM7:", kErrorFileNotFound);
    start("COM3:,4800,N,8,1");
    doc_->tick();
    doc_->tick();
    EXPECT_EQ(doc_->takeTrouble(), "Attitude module, COM7 57600: Invalid Port");
    EXPECT_EQ(doc_->takeTrouble(), "") << "told once";
    EXPECT_NE(connectedText(*doc_, {}).find("ATTITUDE\nCOM7 57600: Invalid Port"), std::string::npos);
    ports_.refuse("COM7:", kNoError);
    ports_.send(sentence(rmc(kHere)) + "\r\n" + sentence(gga(kHere)) + "\r\n$RPY,1,2,3\r\n", "COM7:");
    EXPECT_TRUE(eventually([&] {
        doc_->tick();
        return connectedText(*doc_, {}).find("COM7 57600: the module is heard") != std::string::npos;
    }));
    EXPECT_EQ(ports_.openings(), (std::vector<std::string>{"COM3: 4800", "COM7: 57600"}));
    ports_.send("$GPXXX*00\r\n", "COM3:");
    EXPECT_TRUE(eventually([&] {
        const std::vector<std::string> trace = doc_->takeTrace();
        return std::ranges::find(trace, "$GPXXX*00: checksum failed") != trace.end();
    }));
    doc_->tick();
    EXPECT_FALSE(data().position) << "its port is not the receiver's";
    ports_.fail(kErrorDeviceFailure);
    EXPECT_TRUE(eventually([&] {
        doc_->tick();
        return std::ranges::count(ports_.openings(), "COM7: 57600") > 1;
    })) << "and found again";
    Settings changed = doc_->settings();
    changed.gyroConnected = 0;
    doc_->applySettings(changed);
    EXPECT_NE(connectedText(*doc_, {}).find("No module is read"), std::string::npos);
    ports_.refuse("COM7:", kErrorFileNotFound);
    doc_->tick();
    EXPECT_EQ(doc_->modulePort().failure(), "") << "nobody asks for it any more";
}

TEST_F(CKorvelDocTest, TheTraceShowsWhatThePortReadsAndWrites) {
    start("COM3:,4800,N,8,1");
    doc_->tick();
    ports_.send("\xB5x\r\nASTRAL\r\n");
    std::string seen;
    EXPECT_TRUE(eventually([&] {
        for (const std::string& line : doc_->takeTrace()) seen += line + "\n";
        return seen.find(":xmt") != std::string::npos;
    })) << seen;
    EXPECT_NE(seen.find("\\xB5x\\r\\nASTRAL\\r\\n:rcv"), std::string::npos) << seen;
    EXPECT_NE(seen.find("ASTRAL\\r\\n:wrt"), std::string::npos) << seen;
    doc_->setTracing(false);
    ports_.send("ASTRAL\r\n");
    tickAfter(500);
    EXPECT_TRUE(doc_->takeTrace().empty());
}

TEST_F(CKorvelDocTest, OtherDatabasesComeIntoUseAtATickAndThePlanKeepsItsPlaces) {
    start("COM3:,4800,N,8,1");
    const auto airport = [](const std::string& ident) {
        return "ARPT_BEGIN\nID=" + ident + "\nNAME=Field\nPOSN.LAT=47.5\nPOSN.LON=10.2\nARPT_END\n";
    };
    folder_.write("old/a.UDB.TXT", airport("XOLD"));
    folder_.write("new/a.UDB.TXT", airport("XNEW"));
    int told = 0;
    doc_->onOtherDatabases = [&] { ++told; };
    doc_->loadDatabases(std::vector{folder_ / "old"});
    EXPECT_EQ(told, 1);
    ASSERT_EQ(doc_->flight().plan().enterRoute("XOLD"), "");
    const auto near = [&] {
        doc_->wantNearAirports();
        doc_->tick();
        return data().nearAirports ? data().nearAirports->front().ident : std::string();
    };
    say({rmc(kHere), gga(kHere)});
    EXPECT_EQ(near(), "XOLD");
    doc_->charts().startLoading({folder_ / "new"});
    EXPECT_EQ(told, 1) << "not before the tick";
    EXPECT_TRUE(eventually([&] {
        doc_->tick();
        return told == 2;
    }));
    EXPECT_EQ(near(), "XNEW");
    EXPECT_EQ(doc_->charts().database().Find("XOLD"), nullptr);
    EXPECT_EQ(data().activeKey, "a.XOLD");
}

TEST_F(CKorvelDocTest, TheNearestStayWithTheLostPositionAndAnEmergencyEndsInThePlan) {
    start("COM3:,4800,N,8,1");
    const auto airport = [](const std::string& ident, const std::string& lon, const std::string& runway) {
        return "ARPT_BEGIN\nID=" + ident + "\nNAME=" + ident + "\nPOSN.LAT=47.5\nELEV=1000\nPOSN.LON=" + lon +
               "\nRWY1.LEN=" + runway + "\nRWY1.LO.ID=09\nRWY1.HI.ID=27\nARPT_END\n";
    };
    folder_.write("data/a.UDB.TXT",
        airport("XGRS", "10.26", "2000\nRWY1.SURFACE=GRASS") + airport("XSHT", "10.28", "1500\nRWY1.SURFACE=ASPH") +
            airport("XLNG", "10.33", "4500\nRWY1.SURFACE=CONC") + airport("XFAR", "11.25", "9000\nRWY1.SURFACE=CONC"));
    doc_->loadDatabases(std::vector{folder_ / "data"});
    ASSERT_EQ(doc_->flight().plan().enterRoute("XFAR"), "");
    say({rmc(kHere), gga(kHere)});
    const auto near = [&](const NearestFilter& filter) {
        doc_->chooseNearest(filter);
        doc_->wantNearAirports();
        doc_->tick();
        std::string found;
        for (const NearAirport& each : *data().shownNearAirports()) found += each.ident + " ";
        return found;
    };
    EXPECT_EQ(near({}), "XGRS XSHT XLNG XFAR ");
    EXPECT_EQ(near({.fromRunwayFt = 2000}), "XGRS XLNG XFAR ");
    EXPECT_EQ(near({.hardOnly = true}), "XSHT XLNG XFAR ");
    EXPECT_EQ(filterText({.fromRunwayFt = 2000, .hardOnly = true}, 1), "from 610 m, hard");
    const auto ranked = [&] {
        std::string found;
        for (const EmergencyField& field : doc_->emergency().fields(data()))
            found += field.airport.ident + (field.isInGlide() ? "+ " : " ");
        return found;
    };
    EXPECT_EQ(ranked(), "XGRS XSHT XLNG XFAR ") << "no aircraft: the nearest one";
    doc_->aircraft().choose(AircraftProfile{});
    say({rmc(kHere), "GPGGA,1," + std::string(kHere) + ",1,04,1.2,1500.0,M,,,,"});  // 3900 ft above them
    EXPECT_EQ(ranked(), "XLNG+ XSHT+ XGRS+ XFAR ");
    const EmergencyField best = doc_->emergency().fields(data()).front();
    doc_->emergency().flyTo(best.airport);
    doc_->emergency().flyTo(doc_->emergency().fields(data())[1].airport);
    doc_->refresh();
    EXPECT_TRUE(data().emergency && data().directLeg);
    EXPECT_EQ(data().activeKey, "a.XSHT");
    doc_->emergency().end();
    doc_->tick();
    EXPECT_FALSE(data().emergency || data().directLeg);
    EXPECT_EQ(data().activeKey, "a.XFAR");
    doc_->emergency().flyTo(best.airport);
    doc_->flight().navigation().DirectTo("XGRS", "");
    doc_->tick();
    EXPECT_FALSE(data().emergency) << "the pilot chose another field";
    doc_->flight().navigation().DirectTo(best.airport.ident, "");
    doc_->tick();
    EXPECT_FALSE(data().emergency) << "nor is it one when that field is flown to later";
    doc_->flight().navigation().ClearNavigation();
    doc_->tick();
    clock_.advanceMs(5000);
    EXPECT_EQ(near({}), "XGRS XSHT XLNG XFAR ");
    EXPECT_TRUE(data().formerNearAirports && !data().nearAirports && !data().position);
    EXPECT_EQ(ranked(), "XGRS XSHT XLNG XFAR ") << "how high it is nobody knows";
}

TEST_F(CKorvelDocTest, TheTimeIsTheReceiversWhileItTellsIt) {
    profile_.setString(kOptionsSection, "Port", "COM3:,4800,N,8,1");
    doc_ = std::make_unique<CKorvelDoc>(CKorvelDoc::Foundations{profile_, clock_, ports_.opener(), folder_.path()});
    doc_->setTracing(true);
    const LocalTime computers = clock_.localNow();
    say({"GPRMC,120000.50,A,4730.0,N,01015.0,E,100,89.68,010179,,", gga(kHere)});
    EXPECT_EQ(data().now, (LocalTime{2079, 1, 1, 12, 0, 0}));
    EXPECT_EQ(data().utcSecondOfDay, 12 * 3600);
    tickAfter(4999);
    EXPECT_EQ(data().now, (LocalTime{2079, 1, 1, 12, 0, 4}));
    tickAfter(1);
    EXPECT_EQ(data().now.year, computers.year) << "the receiver has fallen silent";
    EXPECT_EQ(data().utcSecondOfDay, 5);
    doc_.reset();
    EXPECT_TRUE(folder_.read("korvel-log.txt").starts_with("20790101,,,12:00,")) << folder_.read("korvel-log.txt");
}

TEST_F(CKorvelDocTest, AReceiverWithoutVariationIsNoticedAndOnlyALiveOneHasAFixToHide) {
    start("COM3:,4800,N,8,1");
    EXPECT_FALSE(doc_->hasLiveFix() || doc_->lacksReceiverVariation());
    say({"GPRMC,1,A,4730.0,N,01015.0,E,10.5,89.68,211200,4.2,E", gga(kHere)});
    EXPECT_TRUE(doc_->hasLiveFix());
    EXPECT_FALSE(doc_->lacksReceiverVariation());
    say({rmc(kHere)});
    EXPECT_TRUE(doc_->lacksReceiverVariation());
    Settings settings = doc_->settings();
    settings.ignoreMagVar = 1;
    doc_->applySettings(settings);
    EXPECT_FALSE(doc_->lacksReceiverVariation()) << "nobody asks for it";
    doc_->flight().startSimulator({.position = {0.8, 0.2}});
    doc_->tick();
    EXPECT_FALSE(doc_->hasLiveFix()) << "the simulator hides it already";
}

TEST_F(CKorvelDocTest, AReplayFliesWithoutAPortUntilThePilotChoosesOne) {
    doc_ = std::make_unique<CKorvelDoc>(CKorvelDoc::Foundations{profile_, clock_, ports_.opener(), folder_.path()});
    const std::string log =
        sentence("GPRMC,1,A," + std::string(kHere) + ",100,89.68,010179,,") + "\n" + sentence(gga(kHere)) + "\n";
    doc_->useSource(
        std::make_unique<ReplaySource>(makeReplayScript(log), ReplaySource::Options{.label = "flight.log"}, clock_));
    ASSERT_TRUE(eventually([&] {
        doc_->tick();
        return data().position.has_value();
    }));
    EXPECT_EQ(data().altitudeFt, 328);
    EXPECT_EQ(data().status, "");
    EXPECT_EQ(doc_->portLabel(), "flight.log");
    EXPECT_FALSE(doc_->searchesPort());
    EXPECT_EQ(data().source, SourceKind::Replay);
    EXPECT_EQ(data().groundSpeedKt, 100);
    EXPECT_EQ(data().flightTimeSec, std::nullopt) << "it is no flight";
    EXPECT_LT(data().now.year, 2079) << "and its time is not now";
    EXPECT_FALSE(doc_->hasLiveFix());
    tickAfter(5000);
    EXPECT_FALSE(data().position);
    EXPECT_TRUE(data().sourceEnded);
    EXPECT_EQ(data().status, "flight.log\nReplay ended");
    EXPECT_TRUE(ports_.attempts().empty()) << "nothing is searched";
    Settings changed = doc_->settings();
    changed.port = "COM4:,9600,N,8,1";
    doc_->applySettings(changed);
    doc_->tick();
    EXPECT_EQ(data().status, "COM4 9600\nNo Gps Rcvr Activity");
    EXPECT_EQ(data().source, SourceKind::Receiver);
    EXPECT_FALSE(data().sourceEnded || data().lastPosition) << "the aircraft was never there";
    doc_.reset();
    EXPECT_FALSE(std::filesystem::exists(folder_ / "korvel-log.txt"));
}

TEST_F(CKorvelDocTest, APortThatAScanFoundIsNoChoice) {
    for (const bool scanned : {true, false}) {
        start("COM3:,4800,N,8,1", scanned);
        doc_->tick();
        tickAfter(10000);
        tickAfter(500);
        EXPECT_EQ(doc_->searchesPort(), scanned);
        EXPECT_EQ(data().status, "COM3 4800\nNo Gps Rcvr Activity") << "where it was comes first";
        doc_.reset();
    }
}

TEST_F(CKorvelDocTest, TellsWhatToDoAboutEachStateOfTheReceiver) {
    const auto says = [&](std::string_view words) {
        const std::string told = connectedText(*doc_, {});
        EXPECT_NE(told.find(words), std::string::npos) << words << "\nnot in\n" << told;
    };
    ports_.refuse("COM1:", kErrorAccessDenied);
    ports_.refuse("COM2:", kErrorFileNotFound);
    start("");
    doc_->tick();
    says("COM1 to COM9 are searched");
    says("COM1 9600: Port already open!\nAnother program uses this port");
    doc_->tick();
    says("COM2 9600: Invalid Port\nThis computer has no such port");
    doc_->tick();
    says("COM3 9600: No Gps Rcvr Activity\nThe port is open and silent");
    say({"PGRMC,1,2"});
    EXPECT_EQ(connectedText(*doc_, {}).find("talks PG"), std::string::npos) << "a maker's own sentence";
    say({"GNGGA,1,,,,,0,00,,,M,,,,"});
    says("COM3 9600: this receiver talks GN\nIt must send RMC or VTG, and GGA, as GP");
    say({rmc(kHere)});
    says("COM3 9600: Waiting for NMEA gpgga\nThe receiver must send");
    say({gga(kHere, 0)});
    says("COM3 9600: Locating Satellites\nThe receiver is heard but has no position");
    say({rmc(kHere), gga(kHere)});
    says("COM3 9600: A fix, 4 satellites in use\n\nATTITUDE\nNo module");
}

TEST_F(CKorvelDocTest, ATrafficReceiverTellsAttitudeAndOtherAircraft) {
    // One that nobody has, and nobody has at once.
    const std::uint16_t port = NetSocket::bindUdp(lookUpAddresses("127.0.0.1", 0, true).at(0)).localPort();
    start("");
    doc_->chooseReceiver({.source = "gdl90://127.0.0.1:" + std::to_string(port)});
    const NetSocket sender = NetSocket::connectUdp(lookUpAddresses("127.0.0.1", port, true).at(0));
    const auto hears = [&](const std::vector<std::uint8_t>& message, const std::function<bool()>& seen) {
        return eventually([&] {
            sender.send(gdl90Frame(message));
            doc_->tick();
            return seen();
        });
    };
    std::vector<std::uint8_t> report(28, 0);
    report[0] = 10, report[4] = 1, report[5] = 0x22, report[11] = 0x0A, report[12] = 0x09, report[13] = 0x99;
    EXPECT_TRUE(hears(report, [&] { return data().position.has_value(); }));
    report[0] = 20, report[4] = 2, report[19] = 'X';
    EXPECT_TRUE(hears(report, [&] { return data().traffic != nullptr; }));
    EXPECT_EQ(data().traffic->at(0).name, "X");
    EXPECT_TRUE(
        hears({0x65, 1, 0, 100, 0, 55, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, [&] { return data().attitudeMeasured; }));
    EXPECT_NEAR(*data().bankDeg, 10, 1e-9);
    EXPECT_NEAR(*data().pitchDeg, 5.5, 1e-9);
    // What was sent in vain until then may still arrive.
    EXPECT_TRUE(eventually([&] {
        tickAfter(1000);
        return !data().attitudeMeasured;
    })) << "too old for an attitude";
    doc_->chooseTraffic({.shown = false});
    EXPECT_EQ(data().traffic, nullptr);
    EXPECT_EQ(profile_.getInt(kOptionsSection, "Traffic", 1), 0);
    doc_->chooseTraffic({});
    doc_->chooseReceiver({});
    doc_->tick();
    EXPECT_EQ(data().traffic, nullptr) << "what another receiver told";
}

}}  // namespace korvel
