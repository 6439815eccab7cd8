#include <gtest/gtest.h>

#include "TempFolder.h"
#include "base/Ascii.h"
#include "nav/track/Track.h"
#include "nav/track/TrackRecorder.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr LocalTime kStart{.year = 2026, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 57};
constexpr std::string_view kBreak = "00000000,000000,0.0,0.0,0,0,0\r\n";

GeoPoint at(double latDeg, double lonDeg) { return {latDeg * kDegToRad, lonDeg * kDegToRad}; }

class TrackTest : public testing::Test {
 protected:
    std::size_t offerAfter(std::int64_t ms, double latDeg) {
        clock_.advanceMs(ms);
        return track_.AddTrackPoint(at(latDeg, -122.5), 95, 270, -12);
    }
    std::string written() const {
        std::string text;
        EXPECT_TRUE(track_.WriteTrackText(text));
        return text;
    }

    VirtualClock clock_{kStart};
    Track track_{clock_};
};

TEST_F(TrackTest, PointsAreFiveSecondsApartAndNeverRepeatAPosition) {
    EXPECT_EQ(track_.AddTrackPoint({}, 0, 0, 0), 0U);
    EXPECT_EQ(offerAfter(0, 37), 1U);
    EXPECT_EQ(offerAfter(4000, 38), 0U);
    EXPECT_EQ(offerAfter(1000, 39), 1U);
    EXPECT_EQ(offerAfter(3600000, 39.00006), 0U) << "the same point within the tolerance";
    EXPECT_EQ(offerAfter(0, 39.0001), 1U);
    EXPECT_EQ(track_.read()->slots.back()->offsetS, 3605U);
}

TEST_F(TrackTest, RecordingGoesOnWhenTheWallClockIsSetBack) {
    offerAfter(0, 37);
    clock_.setLocalNow({.year = 2001});
    EXPECT_EQ(offerAfter(5000, 38), 1U);
}

TEST_F(TrackTest, KeepsCalendarTimesAndBreaksThroughItsText) {
    track_.setPendingBreak();
    offerAfter(0, 37);
    EXPECT_EQ(offerAfter(5999, 38.1234567), 2U) << "the break was waiting for a point before it";
    const std::string text = "20261231,235957,37.000000,-122.500000,95,270,-12\r\n" + std::string(kBreak) +
                             "20270101,000002,38.123457,-122.500000,95,270,-12\r\n";
    EXPECT_EQ(written(), text);
    ASSERT_TRUE(track_.ReadTrackText("; remark\r\n" + text));
    EXPECT_EQ(written(), text);
    EXPECT_EQ(offerAfter(0, 40), 0U) << "recording goes on behind the last point";
    EXPECT_EQ(offerAfter(5000, 40), 1U);
}

TEST_F(TrackTest, RefusesATextWithAMalformedLine) {
    const std::string good = "20070110,120000,1.5,2.5,1,2,3\r\n";
    constexpr std::string_view kBadLines[] = {"", "2007011,120000,1,2,1,2,3", "20070110,12000,1,2,1,2,3",
        "20070110,1200000,1,2,1,2,3", "20070230,120000,1,2,1,2,3", "20070110,240000,1,2,1,2,3",
        "2007011x,120000,1,2,1,2,3", "20070110,120000,90.1,2,1,2,3", "20070110,120000,1,-180.1,1,2,3",
        "20070110,120000,nan,2,1,2,3", "20070110,120000,1,2,1,2", "20070110,120000,1,2,1,2,x",
        "20070110,120000,,2,1,2,3", "20070110,115959,1,2,1,2,3", "00000000,000000",
        "20070110,120000,1,2,1,2,3\n20070110,120005,1,2,1,2,3"};
    for (const std::string_view bad : kBadLines) {
        EXPECT_FALSE(track_.ReadTrackText(std::string(good).append(bad).append("\r\n").append(good))) << bad;
        EXPECT_EQ(written(), "") << bad;
    }
    EXPECT_TRUE(track_.ReadTrackText(good + "20070110,1200"));
    EXPECT_EQ(written(), "20070110,120000,1.500000,2.500000,1,2,3\r\n");
}

TEST_F(TrackTest, RecorderSavesAndOpensFiles) {
    const TempFolder folder;
    TrackRecorder recorder(clock_);
    EXPECT_EQ(recorder.saveTrack(folder / "a.trk"), "No track to save");
    recorder.offer(at(1, 2), 3, 4, 5);
    EXPECT_EQ(recorder.saveTrack(folder / "a.trk"), "");
    folder.write("bad.trk", "what?\r\n");
    folder.write("back.trk", "; x\r\n20260101,000100,1,2,3,4,5\r\n20260101,000059,1,2,3,4,5\r\n");
    std::filesystem::create_directory(folder / "folder.trk");
    const auto shown = recorder.track();
    for (const auto& [name, error] : {std::pair{"bad.trk", "Invalid format!"}, {"missing.trk", "File Open Error"},
             {"back.trk", "Invalid format! The time in line 3 is before the track's first."},
             {"folder.trk", "This is a folder or a device, not a file."}}) {
        EXPECT_EQ(recorder.openTrack(folder / name), error);
        EXPECT_EQ(recorder.track(), shown);
    }
}

TEST_F(TrackTest, WhatWasRecordedIsKeptWhateverIsShownInItsPlace) {
    const TempFolder folder;
    const std::string opened = "20260101,000000,1.000000,2.000000,3,4,5\r\n";
    folder.write("a.trk", opened);
    const auto lineAt = [](int second) { return "20270101,0000" + zeroPadded(second, 2); };
    {
        TrackRecorder recorder(clock_, folder / "now.trk");
        EXPECT_FALSE(recorder.isUnsaved());
        for (const double lat : {10.0, 20.0, 30.0}) {
            clock_.advanceMs(5000);
            recorder.offer(at(lat, 2), 3, 4, 5);
            EXPECT_TRUE(recorder.isUnsaved());
            EXPECT_EQ(recorder.openTrack(folder / "a.trk"), "");
            EXPECT_FALSE(recorder.isUnsaved() || folder.has("now.trk"));
        }
        clock_.advanceMs(5000);
        recorder.offer(at(40, 2), 3, 4, 5);
        std::string both;
        recorder.track()->WriteTrackText(both);
        EXPECT_TRUE(both.starts_with(opened + std::string(kBreak))) << both;
        EXPECT_TRUE(folder.read("now.trk").ends_with(lineAt(17) + ",40.000000,2.000000,3,4,5\r\n"));
        recorder.endSession();
    }
    for (const auto& [name, second] :
        {std::pair{"last-now.trk", 17}, {"last-2-now.trk", 12}, {"last-3-now.trk", 7}, {"last-4-now.trk", 2}})
        EXPECT_NE(folder.read(name).find(lineAt(second)), std::string::npos) << name;
    // A run that records nothing pushes nothing out.
    { TrackRecorder(clock_, folder / "now.trk").endSession(); }
    EXPECT_NE(folder.read("last-now.trk").find(lineAt(17)), std::string::npos);
}

TEST_F(TrackTest, RecordingGoesOnWhateverDatesAJournalOrAFileHas) {
    const TempFolder folder;
    const std::string old = "00070101,000000,1.000000,2.000000,3,4,5\r\n";
    folder.write("now.trk", old);
    folder.write("old.trk", old);
    TrackRecorder recorder(clock_, folder / "now.trk");
    EXPECT_EQ(recorder.track(), nullptr) << "seconds behind the year 7 cannot be told";
    EXPECT_EQ(folder.read("now.trk.bad"), old);
    EXPECT_NE(recorder.openTrack(folder / "old.trk"), "");
    recorder.offer(at(10, 2), 3, 4, 5);
    EXPECT_TRUE(folder.read("now.trk").starts_with("2026"));
}

TEST_F(TrackTest, ALineOfTheJournalThatMakesNoSenseCostsThatLine) {
    const TempFolder folder;
    const std::string good = "20260101,000000,1.000000,2.000000,3,4,5\r\n";
    const std::string later = "20260101,000010,1.500000,2.000000,3,4,5\r\n";
    const std::string journal = good + "20260101,0000" + std::string(3, '\0') + "\r\n" + later;
    folder.write("now.trk", journal);
    TrackRecorder recorder(clock_, folder / "now.trk");
    EXPECT_EQ(recorder.takeTrouble(), "Lines of the recorded track that could not be read: 1");
    EXPECT_EQ(recorder.takeTrouble() + recorder.trouble(), "");
    ASSERT_TRUE(recorder.track());
    EXPECT_EQ(recorder.track()->read()->slots.size(), 2U);
    EXPECT_TRUE(recorder.isUnsaved());
    EXPECT_EQ(folder.read("now.trk"), good + later) << "or it would be told at every start";
    EXPECT_EQ(folder.read("now.trk.bad"), journal);
}

TEST_F(TrackTest, AKilledRecorderFindsItsTrackAgain) {
    const TempFolder folder;
    std::string expected;
    {
        TrackRecorder recorder(clock_, folder / "now.trk");
        for (int i = 0; i < 3; ++i) {
            recorder.offer(at(i, 0), i, 0, 0);
            clock_.advanceMs(5000);
        }
        recorder.track()->WriteTrackText(expected);
        EXPECT_EQ(folder.read("now.trk"), expected) << "while the recorder is still at it";
    }
    folder.write("now.trk", expected + "20270101,0000");
    TrackRecorder next(clock_, folder / "now.trk");
    next.offer(at(9, 0), 9, 0, 0);
    EXPECT_EQ(folder.read("now.trk"), expected + std::string(kBreak) + "20270101,000012,9.000000,0.000000,9,0,0\r\n");
    next.endSession();
    EXPECT_FALSE(folder.has("now.trk"));
    EXPECT_TRUE(folder.has("last-now.trk"));
    folder.write("now.trk", "not a track\r\n");
    EXPECT_EQ(TrackRecorder(clock_, folder / "now.trk").track(), nullptr);
    EXPECT_EQ(folder.read("now.trk.bad"), "not a track\r\n");
}

}}  // namespace korvel
