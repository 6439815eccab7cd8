#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "TimeZone.h"
#include "base/TextNumbers.h"
#include "exchange/Formats.h"
#include "exchange/Source.h"
#include "exchange/TrackExchange.h"
#include "platform/SystemClock.h"

namespace korvel { namespace {

constexpr std::string_view kTrack =
    "20261025,005950,47.500000,-122.300000,100,180,3000\r\n"
    "20261025,010005,47.510000,-122.310000,101,181,3010\r\n"
    "00000000,000000,0.0,0.0,0,0,0\r\n"
    "20261025,145959,-0.000100,179.999900,102,182,-120\r\n"
    "20261026,000010,-47.600000,0.000100,103,183,0\r\n";

/// The slots in the form of a ".trk" file.
std::string linesOf(const ForeignTrack& track, const Clock& clock) {
    const TrackLines lines = trackLinesOf(track, clock);
    std::string text = lines.error;
    for (const auto& slot : lines.slots) text += trackLine(lines.baseS, slot);
    return text;
}

/// Without speed and direction, which most formats do not have, and with heights to ten feet.
std::string inShort(std::string text) {
    std::string result;
    while (!text.empty()) {
        const std::string line = text.substr(0, text.find('\n'));
        text.erase(0, line.size() + 1);
        const auto field = [&line](int n) {
            std::size_t from = 0;
            while (n-- > 0) from = line.find(',', from) + 1;
            return line.substr(from, line.find(',', from) - from);
        };
        if (field(0) != "00000000")
            result += field(0) + ' ' + field(1) + ' ' + formatFixed(ParseDouble(field(2)), 3) + ' ' +
                      formatFixed(ParseDouble(field(3)), 3) + ' ' + formatInt((ParseInt(field(6)) + 1005) / 10 - 100) +
                      '\n';
        else
            result += "break\n";
    }
    return result;
}

TEST(TrackExchange, KeepsTimesPositionsAndHeightsThroughEachFormat) {
    const CommaLocale comma;
    for (const char* zone : {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Kathmandu"}) {
        const TimeZone inForce(zone);
        const SystemClock clock;
        Track track(clock);
        ASSERT_TRUE(track.ReadTrackText(kTrack));
        const auto points = foreignTrack(*track.read(), clock);
        std::string expected = inShort(std::string(kTrack));
        std::string_view format;
        const auto back = [&](std::string_view name) {
            return inShort(linesOf(readForeignTrack(trackAs(name, points).value_or(""), format), clock));
        };
        EXPECT_EQ(back("gpx"), expected) << zone;
        EXPECT_EQ(format, "gpx");
        expected.erase(expected.find("break\n"), 6);
        EXPECT_EQ(back("igc"), expected) << zone << ": a gap in time alone";
        EXPECT_EQ(format, "igc");
    }
    EXPECT_FALSE(trackAs("fpl", {}));
}

TEST(TrackExchange, WritesRecordsOfTheirFixedWidth) {
    const std::vector<std::optional<ForeignTrackPoint>> points{ForeignTrackPoint{{0.5, -2.0}, 1787390000, 3280.84},
        std::nullopt, ForeignTrackPoint{{-1.5e-9, 1.0}, 1787390010, -32.8084}};
    EXPECT_EQ(trackAs("igc", points),
        "AXXXKorvel Pro\r\nHFDTE220826\r\nHFDTM100GPSDATUM:WGS-1984\r\n"
        "B0913202838873N11435494WA0000001000\r\nB0913300000000S05717747EA00000-0010\r\n");
    const auto kml = trackAs("kml", points);
    EXPECT_NE(kml->find("-114.5915590,28.6478898,1000.0</coordinates>"), std::string::npos) << *kml;
}

TEST(TrackExchange, ReadsWhatOthersWrite) {
    const TimeZone inForce("UTC");
    const SystemClock clock;
    EXPECT_EQ(trackLinesOf({.error = "why not"}, clock).error, "why not");
    const std::pair<std::string, const char*> cases[] = {
        {"<gpx><trk><trkseg><trkpt lat=\"1\" "
         "lon=\"2\"><ele>100</ele><time>2026-08-22T10:11:12.7+02:00</time><speed>10</speed>"
         "<course>90</course></trkpt></trkseg><trkseg/><trkseg><trkpt lat=\"3\" "
         "lon=\"4\"><time>2026-08-22T08:11:30</time></trkpt>"
         "</trkseg></trk></gpx>",
            "20260822,081112,1.000000,2.000000,19,90,328\r\n00000000,000000,0.0,0.0,0,0,0\r\n20260822,081130,3.000000,"
            "4.000000,0,0,0\r\n"},
        {R"(<gpx><trk><trkseg><trkpt lat="1" lon="200"/></trkseg></trk></gpx>)",
            "A position in the file is no latitude and longitude."},
        {R"(<gpx><wpt lat="1" lon="2"/></gpx>)", "The file has no track."},
        {"AXXX\r\r\nHFDTEDATE:311226,"
         "01\r\r\nB2359505407121N00249342WA0028000421020509950\r\r\nB0000055407121S00249342EA0010000000\r\r\n",
            "20261231,235950,54.118683,-2.822367,0,0,1381\r\n20270101,000005,-54.118683,2.822367,0,0,328\r\n"},
        {"AXXX\nHFDTE311226\nB1000005407121N00249342WA0000000000\nB0959595407121N00249342WA0000000000\n",
            "20261231,100000,54.118683,-2.822367,0,0,0\r\n20261231,100000,54.118683,-2.822367,0,0,0\r\n"},
        {"AXXX\nHFDTE311226\nB2359609907121N00249342WA0028000421\n",
            "A position in the file is no latitude and longitude."},
    };
    for (const auto& [bytes, lines] : cases) {
        std::string_view format;
        EXPECT_EQ(linesOf(readForeignTrack(bytes, format), clock), lines) << bytes;
    }
    const std::pair<const char*, std::optional<std::int64_t>> times[] = {{"1970-01-02T00:00:00Z", 86400},
        {"1970-01-01T02:00:00+02:00", 0}, {"1970-01-01 00:00:01", 1}, {"1970-01-01T00:00:00-0130", 5400},
        {"1970-02-30T00:00:00Z", {}}, {"1970-01-01", {}}, {"1970-01-01T00:00:00+15", {}}, {"", {}}};
    for (const auto& [text, seconds] : times) EXPECT_EQ(utcOf(text), seconds) << text;
}

}}  // namespace korvel
