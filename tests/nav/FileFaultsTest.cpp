// Everything that this room and the ones below it save or load, with each step of it failing.
#include <chrono>
#include <future>

#include "TempFolder.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/PlanFiles.h"
#include "nav/track/FlightLog.h"
#include "nav/track/TrackRecorder.h"
#include "navdb/LoadReport.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseLayout.h"
#include "navdb/file/LittleEndian.h"
#include "navdb/user/UserDatabaseReader.h"
#include "platform/FaultyFiles.h"
#include "platform/FileIo.h"

namespace korvel { namespace {

constexpr std::string_view kTrackLine = "20260101,000000,1.000000,2.000000,3,4,5\r\n";

class FileFaultsTest : public PlacesFixture {
 protected:
    FileFaultsTest() { place("a.KAA", 10, 20); }

    std::size_t fileCount() const {
        const std::filesystem::directory_iterator files(folder_.path());
        return static_cast<std::size_t>(std::distance(files, {}));
    }

    TempFolder folder_;
    GuardedPlan plan_;
};

TEST_F(FileFaultsTest, ASavedFileIsTheOldOneOrTheNewOne) {
    const struct {
        std::function<std::string(FaultyFiles&)> save;
        std::string_view saved;
    } savers[] = {
        {[this](FaultyFiles& disk) {
             PlanFiles files(database_, fixes_, &places_, plan_, disk);
             EXPECT_EQ(files.LoadPlanText("KAA@45"), "");
             return files.savePlanAs(folder_ / "file");
         },
            "KAA@45\r\n"},
        {[this](FaultyFiles& disk) {
             TrackRecorder recorder(clock_, {}, disk);
             recorder.offer(degrees(1, 2), 3, 4, 5);
             return recorder.saveTrack(folder_ / "file");
         },
            kTrackLine},
    };
    for (const auto& saver : savers)
        atEveryFault([&](FaultyFiles& disk) {
            folder_.write("file", "old");
            const std::string error = saver.save(disk);
            EXPECT_EQ(error, disk.hasFailed() ? "File Open Error" : "");
            EXPECT_EQ(folder_.read("file"), disk.hasFailed() ? "old" : saver.saved);
            EXPECT_EQ(fileCount(), 1U);
        });
}

TEST_F(FileFaultsTest, ALoadedFileIsTakenWholeOrNotAtAll) {
    folder_.write("plan.fp", "KAA\r\nKAA@45\r\n");
    folder_.write("track.trk", std::string(kTrackLine));
    const auto asText = [](std::size_t size) { return std::to_string(size); };
    const std::function<std::string(FaultyFiles&)> loaders[] = {
        [&](FaultyFiles& disk) {
            PlanFiles files(database_, fixes_, &places_, plan_, disk);
            const auto bytes = readWholeFile(folder_ / "plan.fp", kWholeFile, disk);
            if (!bytes) return std::string();
            EXPECT_EQ(files.OpenPlanFile("plan.fp", *bytes), "");
            return asText((*plan_.lock())->entries().size() / 2);
        },
        [&](FaultyFiles& disk) {
            TrackRecorder recorder(clock_, {}, disk);
            const std::string error = recorder.openTrack(folder_ / "track.trk");
            EXPECT_TRUE(error.empty() ? recorder.track() != nullptr : error == "File Open Error" && !recorder.track());
            return error.empty() ? asText(recorder.track()->read()->slots.size()) : std::string();
        },
    };
    for (const auto& load : loaders)
        atEveryFault([&](FaultyFiles& disk) {
            const std::string loaded = load(disk);
            EXPECT_EQ(loaded, disk.hasFailed() ? "" : "1");
        });
}

TEST_F(FileFaultsTest, AConvertedListIsFlownFromMemoryWhateverStandsBesideIt) {
    constexpr std::string_view kList =
        "FPL 0\nFWP u i LAKE N 52 28.5 E 009 20.25 0\nFPL 2\nFWP p a KAA N 10 0 E 20 0 0\n";
    atEveryFault([&](FaultyFiles& disk) {
        folder_.write("trip.fp", "KAA\r\n");
        folder_.write("trip_2.fp", "");
        PlanFiles files(database_, fixes_, &places_, plan_, disk);
        EXPECT_EQ(files.OpenPlanFile(folder_ / "trip.TXT", kList), "");
        EXPECT_EQ((*plan_.lock())->entries().front().key, "f.F-LAKE");
        const bool written = folder_.read("trip.fp") == "f.F-LAKE 52.475000 9.337500\r\n";
        EXPECT_TRUE(written || (disk.hasFailed() && folder_.read("trip.fp") == "KAA\r\n"));
        EXPECT_EQ(files.openedFile(), written ? folder_ / "trip.fp" : std::filesystem::path());
        EXPECT_EQ(fileCount(), 2U);
    });
    PlanFiles files(database_, fixes_, &places_, plan_);
    EXPECT_EQ(files.OpenPlanFile(folder_ / "trip.TXT", kList.substr(kList.find("FPL 2"))), "Invalid format!")
        << "an old plan is none of the list's";
}

TEST_F(FileFaultsTest, ATrackIsRecordedOnAndItsJournalStaysReadable) {
    atEveryFault([&](FaultyFiles& disk) {
        folder_.write("now.trk", std::string(kTrackLine) + "2026");
        std::string told;
        {
            TrackRecorder recorder(clock_, folder_ / "now.trk", disk);
            for (int i = 0; i < 4; ++i) {
                clock_.advanceMs(5000);
                recorder.offer(degrees(20 + i, 2), 3, 4, 5);
                told += recorder.takeTrouble();
            }
            EXPECT_GE(recorder.track()->read()->slots.size(), 4U);
        }
        EXPECT_TRUE(told.empty() || told == "Not recorded: now.trk cannot be written") << told;
        const TrackRecorder next(clock_, folder_ / "now.trk");
        ASSERT_TRUE(next.track()) << "what is in the journal are whole lines";
        EXPECT_GE(next.track()->read()->slots.size(), told.empty() ? 5U : 1U);
        EXPECT_EQ(fileCount(), 1U);
    });
}

TEST_F(FileFaultsTest, WhatWasRecordedIsInAFileWhenAnotherTrackIsOpened) {
    folder_.write("old.trk", std::string(kTrackLine));
    atEveryFault([&](FaultyFiles& disk) {
        for (const char* name : {"now.trk", "last-now.trk", "last-2-now.trk"}) std::filesystem::remove(folder_ / name);
        folder_.write("now.trk", "20260101,000000,9.000000,2.000000,3,4,5\r\n");
        folder_.write("last-now.trk", "of yesterday");
        TrackRecorder recorder(clock_, folder_ / "now.trk", disk);
        const bool opened = recorder.openTrack(folder_ / "old.trk").empty();
        EXPECT_TRUE(opened || disk.hasFailed());
        const std::string kept = folder_.read(opened ? "last-now.trk" : "now.trk");
        EXPECT_TRUE(kept.starts_with("20260101,000000,9.000000")) << kept;
        const bool moved = folder_.has("last-2-now.trk");
        EXPECT_EQ(folder_.read(moved ? "last-2-now.trk" : "last-now.trk"), "of yesterday");
    });
}

TEST_F(FileFaultsTest, NoFileIsWrittenUnderTheTrackLock) {
    FaultyFiles disk;
    TrackRecorder recorder(clock_, folder_ / "now.trk", disk);
    bool isFree = true;
    std::future<bool> asked;  // outlives the call, which a lock that is held would keep it waiting for
    disk.before = [&] {
        asked = std::async(std::launch::async, [&] { return recorder.track() != nullptr; });
        isFree = isFree && asked.wait_for(std::chrono::seconds(5)) == std::future_status::ready;
    };
    recorder.offer(degrees(1, 2), 3, 4, 5);
    EXPECT_TRUE(isFree);
    folder_.write("old.trk", std::string(kTrackLine));
    EXPECT_EQ(recorder.openTrack(folder_ / "old.trk"), "");
    EXPECT_TRUE(isFree);
    EXPECT_NE(disk.done().find("rename"), std::string::npos);
}

TEST_F(FileFaultsTest, AFlightIsInTheLogOrStaysInItsJournal) {
    constexpr std::string_view kLine = "20260101,,,00:00,KAA,1,0.1\r\n";
    const FlightLog::Options options{.startKt = 60, .endKt = 30};
    atEveryFault([&](FaultyFiles& disk) {
        clock_.setLocalNow({.year = 2026});
        folder_.write("log.txt", "old\r\n");
        systemFileSystem().remove(folder_ / "log.txt.flight");
        std::string told;
        {
            FlightLog log(
                clock_, folder_ / "log.txt", [] { return "KAA"; }, disk);
            log.step(options, 100);
            clock_.advanceMs(6000);
            log.step(options, 100);
            log.close();
            told = log.takeTrouble();
        }
        if (!told.empty()) {
            EXPECT_TRUE(told == "Not recorded: log.txt cannot be written" ||
                        told == "Not recorded: log.txt.flight cannot be written");
            // The next start completes it, unless neither file could be written.
            FlightLog(clock_, folder_ / "log.txt", [] { return ""; });
        }
        const std::string logged = folder_.read("log.txt");
        EXPECT_TRUE(logged.ends_with(kLine) || !told.empty()) << logged;
        EXPECT_TRUE(logged.starts_with("old\r\n"));
        EXPECT_LT(logged.size(), 2 * kLine.size()) << "once only";
        EXPECT_FALSE(folder_.has("log.txt.flight"));
    });
}

TEST_F(FileFaultsTest, AFlightThatTheLogDidNotTakeIsThereAfterTheNextOneAndAKill) {
    const FlightLog::Options options{.startKt = 60, .endKt = 30};
    std::filesystem::create_directory(folder_ / "log.txt");
    {
        FlightLog log(clock_, folder_ / "log.txt", [] { return "KAA"; });
        for (const double speedKt : {100.0, 0.0, 0.0, 100.0, 100.0}) {
            log.step(options, speedKt);
            clock_.advanceMs(60000);
        }
        EXPECT_EQ(log.takeTrouble(), "Not recorded: log.txt cannot be written");
        EXPECT_EQ(log.trouble(), "Not recorded: log.txt cannot be written") << "it lasts";
    }
    std::filesystem::remove(folder_ / "log.txt");
    const FlightLog next(clock_, folder_ / "log.txt", [] { return ""; });
    EXPECT_EQ(folder_.read("log.txt"), "20260101,,,00:01,KAA,1,0.1\r\n20260101,00:03,KAA,00:04,KAA,1,0.1\r\n");
    EXPECT_EQ(next.trouble(), "");
    EXPECT_FALSE(folder_.has("log.txt.flight"));
}

TEST_F(FileFaultsTest, AReportWhoseFileFailsIsShownAllTheSame) {
    atEveryFault([&](FaultyFiles& disk) {
        folder_.write("report.txt", "of yesterday\r\n");
        LoadReport report(folder_ / "report.txt", disk);
        report.restart();
        report.AppendLoadReport("one\r\n");
        report.AppendLoadReport("two\r\n");
        EXPECT_EQ(report.text(), "one\r\ntwo\r\n");
    });
}

TEST_F(FileFaultsTest, DatabasesAreReadWholeAndNeverSpoilt) {
    TestDatabase content;
    content.addAirport("KAA", 10, 20);
    const auto path = folder_ / "world.ng2";
    auto pristine = content.bytes();
    DatabaseChecksum checksum;
    checksum.add(std::span(pristine).subspan(kRegionOffset));
    storeU32(pristine, kFullChecksumOffset, checksum.value());  // the whole file is yet to be tested
    atEveryFault([&](FaultyFiles& disk) {
        writeBytes(path, pristine);
        {
            DatabaseFile file;
            const std::string error = file.Open(path, clock_, {}, disk);
            EXPECT_TRUE(error.empty() || disk.hasFailed());
            EXPECT_EQ(file.index("AptKey") != nullptr, error.empty());
        }
        DatabaseFile again;
        EXPECT_EQ(again.Open(path, clock_), "") << "marked as tested or not";
    });
    folder_.write("own.UDB.TXT", "# AIRPORT\r\n");
    atEveryFault([&](FaultyFiles& disk) {
        LoadReport report;
        UserDatabaseReader reader(report, [](auto) {});
        const std::string error = reader.LoadFile(folder_ / "own.UDB.TXT", disk);
        const bool told = error == "File open error." || report.text().find("File read error") != std::string::npos;
        EXPECT_EQ(told, disk.hasFailed());
    });
}

}}  // namespace korvel
