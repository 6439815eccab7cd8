#include <fstream>

#include "GpsFixture.h"
#include "receiver/talkers/TalkerMerge.h"

namespace korvel { namespace {

using Lines = std::vector<std::string>;

/// What comes out behind a merge, as bodies without "$" and checksum, which must be right.
class Merged {
 public:
    Lines operator()(std::string_view body) { return raw(sentence(body)); }
    Lines raw(const std::string& text) {
        Lines bodies;
        for (const std::string_view line : merge_.take(text)) {
            const std::string body(line.substr(1, line.rfind('*') - 1));
            EXPECT_EQ(line, sentence(body));
            bodies.push_back(body);
        }
        return bodies;
    }
    /// "GPS 5 40/120 38 used", a dash for what is unknown.
    std::string sky() {
        constexpr std::string_view kNames[] = {"GPS", "SBAS", "GLO", "GAL", "BDS", "QZS", "NAV"};
        const auto words = [](std::optional<int> value) { return value ? std::to_string(*value) : "-"; };
        std::string all;
        for (const SkySatellite& satellite : sky_.lock()->satellites()) {
            all += all.empty() ? "" : ", ";
            all += std::string(kNames[static_cast<int>(satellite.id.system)]) + " " +
                   std::to_string(satellite.id.number) + " " + words(satellite.elevationDeg) + "/" +
                   words(satellite.azimuthDeg) + " " + words(satellite.signalDb) + (satellite.used ? " used" : "");
        }
        return all;
    }

 private:
    Guarded<SkyTable> sky_;
    TalkerMerge merge_{sky_};
};

struct Step {
    std::string in;
    Lines out;
};
struct Case {
    const char* rule;
    std::vector<Step> steps;
};

std::string rmc(const std::string& talker, const std::string& time, bool fix = true) {
    return talker + "RMC," + time + (fix ? ",A,4333.1,N,00127.6,E" : ",V,,,,") + ",0.0,,040925,1.7,W,A,V";
}
std::string gga(const std::string& talker, const std::string& time, int quality) {
    return talker + "GGA," + time + ",4333.1,N,00127.6,E," + std::to_string(quality) + ",05,1.3,250.8,M,50.0,M,,";
}
std::string vtg(const std::string& talker, bool speed = true) {
    return talker + (speed ? "VTG,,T,1.7,M,0.0,N,0.0,K,A" : "VTG,,T,,M,,N,,K,N");
}
std::string gns(const std::string& talker, const std::string& modes, const std::string& time = "1.0") {
    return talker + "GNS," + time + ",4333.1,N,00127.6,E," + modes + ",14,1.3,250.8,50.0,2,0100,V";
}
Lines asGp(std::string body) { return {body.replace(0, 2, "GP")}; }
const Lines kNothing;

TEST(TalkerMerge, OfOneMomentOneTalkerIsHeard) {
    const Case cases[] = {
        {"every known talker becomes GP",
            {{rmc("GN", "1"), asGp(rmc("GN", "1"))}, {gga("GA", "1", 2), asGp(gga("GA", "1", 2))},
                {vtg("BD"), asGp(vtg("BD"))}, {rmc("XX", "9"), {rmc("XX", "9")}}, {rmc("PQ", "9"), {rmc("PQ", "9")}},
                {"GNGLL,1", {"GNGLL,1"}}}},
        {"the lower in rank is passed over in each second",
            {{gga("GP", "1", 1), {gga("GP", "1", 1)}}, {gga("GA", "1", 1), kNothing},
                {gga("GP", "2", 1), {gga("GP", "2", 1)}}, {gga("GA", "2", 1), kNothing}}},
        {"a fix goes before rank, and the talker without one gives way next time",
            {{rmc("GN", "1", false), asGp(rmc("GN", "1", false))}, {rmc("GL", "1"), asGp(rmc("GL", "1"))},
                {rmc("GN", "2", false), kNothing}, {rmc("GL", "2"), asGp(rmc("GL", "2"))}}},
        {"lower in rank but first: it gives way to the one behind it",
            {{rmc("GP", "1"), {rmc("GP", "1")}}, {rmc("GN", "1"), asGp(rmc("GN", "1"))}, {rmc("GP", "2"), kNothing},
                {rmc("GN", "2"), asGp(rmc("GN", "2"))}}},
        {"who changes his talker is followed at once",
            {{rmc("GN", "1"), asGp(rmc("GN", "1"))}, {rmc("GP", "2"), {rmc("GP", "2")}},
                {rmc("GP", "3"), {rmc("GP", "3")}}, {rmc("GN", "4"), asGp(rmc("GN", "4"))}}},
        {"kinds do not count for each other",
            {{rmc("GN", "1"), asGp(rmc("GN", "1"))}, {gga("GP", "1", 1), {gga("GP", "1", 1)}}}},
        {"what has no time belongs to the newest time, however many decimals that has",
            {{rmc("GP", "120000.00"), {rmc("GP", "120000.00")}}, {vtg("GP"), {vtg("GP")}}, {vtg("GA"), kNothing},
                {gga("GP", "", 0), {gga("GP", "", 0)}}, {rmc("GA", "120000"), kNothing},
                {gga("GA", "120000.5", 1), asGp(gga("GA", "120000.5", 1))}, {vtg("GA"), asGp(vtg("GA"))}}},
        {"a fix is a position, a quality, a speed",
            {{"GNRMC,1,A,,N,00127.6,E,0.0,,040925,1.7,W,A,V", {"GPRMC,1,A,,N,00127.6,E,0.0,,040925,1.7,W,A,V"}},
                {rmc("GA", "1"), asGp(rmc("GA", "1"))}, {gga("GN", "1", 0), asGp(gga("GN", "1", 0))},
                {gga("GA", "1", 6), asGp(gga("GA", "1", 6))}, {vtg("GN", false), asGp(vtg("GN", false))},
                {vtg("GA"), asGp(vtg("GA"))}}},
        {"too short to be decoded is no fix", {{"GNRMC,1,A,4333.1,N,00127.6,E", {"GPRMC,1,A,4333.1,N,00127.6,E"}},
                                                  {rmc("GA", "1"), asGp(rmc("GA", "1"))}}},
    };
    for (const Case& c : cases) {
        Merged merged;
        for (const Step& step : c.steps) EXPECT_EQ(merged(step.in), step.out) << c.rule << ": " << step.in;
    }
}

TEST(TalkerMerge, WhatIsNoSentencePassesUntouched) {
    Guarded<SkyTable> sky;
    TalkerMerge merge(sky);
    const std::string wrong = "$GNRMC,1,A,4333.1,N,00127.6,E,0.0,,040925,1.7,W,A,V*00";
    for (const std::string& line :
        {wrong, wrong.substr(0, 40), std::string("ASTRAL\r"), std::string(), std::string("$GNRMC"), std::string("$GN"),
            "x" + sentence(rmc("GN", "1")), sentence("GNRMC,1,{"), sentence("gnrmc,1"), sentence("GNGSA,A,3,1") + "\r",
            sentence("GAGSV,1,1,01,5,6,7"), sentence("GAGSV,1,1,01,5,6,7,8,9,1")}) {
        const auto out = merge.take(line);
        ASSERT_EQ(out.size(), 1U) << line;
        EXPECT_EQ(out[0], line);
    }
    EXPECT_EQ(merge.take(sentence(rmc("GN", "1")) + "\r\rrest")[0], sentence(rmc("GP", "1"))) << "up to the first CR";
    EXPECT_EQ(merge.take(sentence(rmc("GP", "2")) + "\r")[0], sentence(rmc("GP", "2")) + "\r") << "GP as it stands";
    EXPECT_TRUE(sky.lock()->satellites().empty());
}

TEST(TalkerMerge, GnsBecomesGgaWhereThereIsNoOther) {
    Merged merged;
    const auto made = [](int quality, const std::string& time) {
        return Lines{
            "GPGGA," + time + ",4333.1,N,00127.6,E," + std::to_string(quality) + ",14,1.3,250.8,M,50.0,M,2,0100"};
    };
    EXPECT_EQ(merged(gns("GN", "AAN")), made(1, "1.0"));
    EXPECT_EQ(merged(gns("GN", "AAN", "2.0")), made(1, "2.0"));
    EXPECT_EQ(merged(gns("GP", "A", "2.0")), kNothing) << "one talker, as of GGA";
    EXPECT_EQ(merged(gga("GN", "2.0", 1)), asGp(gga("GN", "2.0", 1)));
    EXPECT_EQ(merged(gns("GN", "AAN", "3.0")), kNothing) << "there is a GGA";
    EXPECT_EQ(merged(gns("GN", "AAN", "4.0")), made(1, "4.0")) << "there is none any more";
    EXPECT_EQ(merged("GNGNS,5,,,,,NN,,,,,"), kNothing) << "too short";
    const std::pair<const char*, int> modes[] = {{"NR", 4}, {"RF", 4}, {"FP", 5}, {"PD", 3}, {"DA", 2}, {"AE", 1},
        {"EM", 6}, {"MS", 7}, {"SN", 8}, {"NNNN", 0}, {"", 0}};
    for (const auto& [letters, quality] : modes)
        EXPECT_EQ(Merged()(gns("GN", letters)), made(quality, "1.0")) << letters;
}

TEST(TalkerMerge, ARunOfUsedSatellitesIsOneList) {
    Merged merged;
    EXPECT_EQ(merged("GPGSA,A,2,05,12,,,,,,,,,,,2.1,1.1,1.0"), Lines{"GPGSA,A,2,05,12,,,,,,,,,,,2.1,1.1,1.0"})
        << "GP alone";
    EXPECT_EQ(merged("GLGSA,A,3,65,66,,,,,,,,,,,1.9,1.0,0.9"), Lines{"GPGSA,A,3,05,12,,,,,,,,,,,1.9,1.0,0.9"});
    EXPECT_EQ(
        merged("GNGSA,M,1,12,131,45,160,,,,,,,,,1.8,1.0,0.9,1"), Lines{"GPGSA,M,3,05,12,44,45,,,,,,,,,1.8,1.0,0.9"})
        << "each number once, SBAS as 33 to 64";
    EXPECT_EQ(merged("GNGLL,1"), Lines{"GNGLL,1"});
    EXPECT_EQ(
        merged("GNGSA,A,3,1,2,3,4,6,7,8,9,10,,,,1,1,1"), Lines{"GPGSA,A,3,05,12,44,45,01,02,03,04,06,07,08,09,1,1,1"})
        << "other kinds do not end the run; twelve at most";
    merged(vtg("GN"));
    EXPECT_EQ(merged("GNGSA,A,1,,,,,,,,,,,,,,,,"), Lines{"GPGSA,A,1,,,,,,,,,,,,,,,"}) << "a known kind ends it";
}

TEST(TalkerMerge, HandsOnWhatAReceiverForGpsHears) {
    Merged merged;
    EXPECT_EQ(merged("GPGSV,1,1,02,05,40,120,38,46,30,200,"), Lines{"GPGSV,1,1,02,05,40,120,38,46,30,200,"})
        << "as ever";
    EXPECT_EQ(merged.sky(), "GPS 5 40/120 38, SBAS 133 30/200 -");
    Merged whole;
    whole("GPGSV,3,1,07,05,41,121,30,06,,,20,131,12,090,33,07,-3,010,,1");
    whole("GPGSV,3,2,07,09,5,9,9,1");
    EXPECT_EQ(whole("GPGSV,3,3,07,05,42,122,44,08,10,020,25,8"),
        (Lines{"GPGSV,2,1,05,05,41,121,30,06,,,20,44,12,090,33,07,-03,010,", "GPGSV,2,2,05,09,05,009,09"}));
    EXPECT_EQ(
        whole.sky(), "GPS 5 41/121 44, GPS 6 -/- 20, GPS 7 -3/10 -, GPS 8 10/20 25, GPS 9 5/9 9, SBAS 131 12/90 33");
    EXPECT_EQ(whole("GPGSV,1,1,01,07,1,2,3,8"), kNothing) << "nothing on the first signal";
    EXPECT_EQ(whole.sky(), "GPS 5 41/121 30, GPS 6 -/- 20, GPS 7 -3/10 3, GPS 9 5/9 9, SBAS 131 12/90 33")
        << "only that signal is replaced";
    EXPECT_EQ(Merged()("GNGSV,1,1,03,05,41,121,30,70,1,2,3,305,4,5,6"), Lines{"GPGSV,1,1,01,05,41,121,30"})
        << "GN by number";
}

TEST(TalkerMerge, ACycleIsWholeOrNothing) {
    Merged merged;
    const std::string first = "GAGSV,2,1,02,05,41,121,30,7";
    const std::string second = "GAGSV,2,2,02,06,42,122,31,7";
    merged(first), merged(second);
    const std::string whole = "GAL 5 41/121 30, GAL 6 42/122 31";
    EXPECT_EQ(merged.sky(), whole);
    for (const auto& lines : {Lines{second}, Lines{"GAGSV,3,1,03,07,1,1,1,7", "GAGSV,3,3,03,08,1,1,1,7"},
             Lines{"GAGSV,2,1,01,07,1,1,1,7", "GAGSV,3,2,01,08,1,1,1,7"}, Lines{"GAGSV,1,2,01,07,1,1,1,7"},
             Lines{"GAGSV,0,1,01,07,1,1,1,7"}}) {
        for (const std::string& line : lines) merged(line);
        EXPECT_EQ(merged.sky(), whole) << lines.front();
    }
    merged(first), merged("GLGSV,1,1,01,65,1,2,3,1"), merged(second);
    EXPECT_EQ(merged.sky(), "GLO 1 1/2 3, " + whole) << "talkers do not disturb each other";
    merged("GAGSV,1,1,00,7");
    EXPECT_EQ(merged.sky(), "GLO 1 1/2 3") << "none in view";
}

TEST(TalkerMerge, NumbersSatellitesWithinTheirSystems) {
    struct Number {
        const char* talker;
        int number;
        const char* id;  // "": passed over
    };
    const Number numbers[] = {{"GP", 0, ""}, {"GP", 32, "GPS 32"}, {"GN", 33, "SBAS 120"}, {"GP", 64, "SBAS 151"},
        {"GN", 65, "GLO 1"}, {"GP", 99, "GLO 35"}, {"GP", 100, ""}, {"GP", 119, ""}, {"GN", 158, "SBAS 158"},
        {"GN", 193, "QZS 1"}, {"GN", 202, "QZS 10"}, {"GN", 203, "BDS 3"}, {"GN", 263, "BDS 63"}, {"GN", 301, "GAL 1"},
        {"GN", 336, "GAL 36"}, {"GN", 337, ""}, {"GN", 401, "BDS 1"}, {"GN", 463, "BDS 63"}, {"GL", 5, "GLO 5"},
        {"GL", 64, "GLO 64"}, {"GL", 70, "GLO 6"}, {"GL", 255, ""}, {"GA", 36, "GAL 36"}, {"GA", 103, "GAL 3"},
        {"GA", 311, "GAL 11"}, {"GB", 8, "BDS 8"}, {"BD", 141, "BDS 1"}, {"GB", 208, "BDS 8"}, {"GB", 408, "BDS 8"},
        {"PQ", 192, "BDS 52"}, {"PQ", 193, "QZS 1"}, {"PQ", 203, "BDS 3"}, {"GQ", 2, "QZS 2"}, {"QZ", 195, "QZS 3"},
        {"GI", 9, "NAV 9"}, {"GI", 900, ""}};
    for (const Number& n : numbers) {
        Merged merged;
        merged(std::string(n.talker) + "GSV,1,1,01," + std::to_string(n.number) + ",1,2,3");
        EXPECT_EQ(merged.sky(), *n.id == '\0' ? "" : std::string(n.id) + " 1/2 3") << n.talker << n.number;
    }
    Merged quirk;
    quirk("PQGSV,1,1,01,02,20,116,,0,4");
    EXPECT_EQ(quirk.sky(), "BDS 2 20/116 -") << "this talker names the system behind the signal";
}

TEST(TalkerMerge, MarksWhatTheNewestRunUses) {
    Merged merged;
    for (const char* body :
        {"GPGSV,1,1,02,05,1,2,3,46,1,2,3,1", "GAGSV,1,1,01,05,1,2,3,7", "GLGSV,1,1,02,65,1,2,3,66,1,2,3,1"})
        merged(body);
    const auto used = [&] {
        std::string sky = merged.sky();
        for (std::size_t at = sky.find(" 1/2 3"); at != std::string::npos; at = sky.find(" 1/2 3")) sky.erase(at, 6);
        return sky;
    };
    EXPECT_EQ(used(), "GPS 5, SBAS 133, GLO 1, GLO 2, GAL 5");
    merged("GNGSA,A,3,05,46,,,,,,,,,,,1,1,1,1"), merged("GNGSA,A,3,66,,,,,,,,,,,,1,1,1,2");
    EXPECT_EQ(used(), "GPS 5 used, SBAS 133 used, GLO 1, GLO 2 used, GAL 5");
    merged(vtg("GN")), merged("GNGSA,A,3,305,,,,,,,,,,,,1,1,1,3");
    EXPECT_EQ(used(), "GPS 5 used, SBAS 133 used, GLO 1, GLO 2 used, GAL 5 used") << "others are not named";
    merged(vtg("GN")), merged("GPGSA,A,1,,,,,,,,,,,,,1,1,1");
    EXPECT_EQ(used(), "GPS 5, SBAS 133, GLO 1, GLO 2 used, GAL 5 used") << "SBAS goes with GPS";
    merged(vtg("GN")), merged("GNGSA,A,3,65,,,,,,,,,,,,1,1,1");
    EXPECT_EQ(used(), "GPS 5, SBAS 133, GLO 1 used, GLO 2, GAL 5 used") << "by number";
}

TEST(TalkerMerge, AReceiverForGpsAloneIsHeardByteForByte) {
    for (const char* name : {"garmin25lp", "ublox-lea-5h"}) {
        std::ifstream log(std::string(KORVEL_TEST_DATA "/nmea/") + name + ".log", std::ios::binary);
        Guarded<SkyTable> sky;
        TalkerMerge merge(sky);
        int lines = 0;
        for (std::string line; std::getline(log, line); ++lines) {
            const auto out = merge.take(line);
            ASSERT_EQ(out.size(), 1U) << line;
            EXPECT_EQ(out[0], line);
        }
        EXPECT_GT(lines, 100) << name;
        EXPECT_FALSE(sky.lock()->satellites().empty()) << name;
    }
}

TEST_F(GpsTest, AllTalkersAreUnderstoodWhenTheyAreWanted) {
    feed(rmc("GN", "1")), feed(gga("GN", "1", 1));
    EXPECT_FALSE(input_.hasFix(false));
    input_.understandAllTalkers(true);
    feed(rmc("GN", "2")), feed(gga("GN", "2", 1)), feed("GAGSV,1,1,01,05,1,2,3,7");
    EXPECT_TRUE(input_.hasFix(false));
    EXPECT_TRUE(input_.sky().empty()) << "nobody looks";
    input_.satellitesForDisplay();
    EXPECT_EQ(input_.sky().size(), 1U);
    input_.store().reset();
    EXPECT_TRUE(input_.sky().empty()) << "a silent receiver has no sky";
}

}}  // namespace korvel
