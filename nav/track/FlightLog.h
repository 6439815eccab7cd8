#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/ToldOnce.h"
#include "nav/track/LineJournal.h"
#include "platform/Clock.h"

namespace korvel {

struct Settings;

/// Whole minutes and tenths of an hour, both rounded up: "7,0.2". For seconds from 0.
std::string flightTimeText(std::int64_t seconds);

/// Appends a line to a text file for every flight:
///   date,off time,off place,on time,on place,minutes,hours
/// with local times "HH:MM". The on time is the off time and as much later as the ticks say, so
/// that a clock that is set in flight makes no flight longer. Off time and place are empty for a
/// flight that was already under way when it was first seen. Places are what the owner's function
/// names, mostly airports.
///
/// A flight begins when the ground speed reaches the start speed and ends when it has stayed below
/// the end speed for 10 s; then its end is the beginning of those 10 s. While the speed is not
/// known a flight goes on.
///
/// A flight under way is noted every 5 s in a journal beside the log; a program that was killed
/// completes the log from it when it starts again. A line that the log does not take is tried again
/// with the next flight's; until then it stays in the journal, where a line ";" stands between two
/// flights. User-interface thread only.
class FlightLog {
 public:
    struct Options {
        bool enabled = true;
        double startKt = 75.0;
        double endKt = 37.5;

        /// A speed that is not set is the approach speed, or half of it for the end.
        static Options from(const Settings& settings);
    };

    /// Names the place where the aircraft is; empty when there is no name. Asked at the beginning
    /// of a flight and with each note.
    using PlaceNamer = std::function<std::string()>;

    /// The clock and `disk` must outlive the log. Completes the line of a flight that a killed
    /// program left.
    FlightLog(const Clock& clock, const std::filesystem::path& file, PlaceNamer place,
              FileSystem& disk = systemFileSystem());

    /// One tick. Nothing for a speed that is not known.
    void step(const Options& options, std::optional<double> groundSpeedKt);

    /// Completes the line of a flight that is under way, at the end of the program for one.
    void close();

    /// Why a flight is not noted or logged, told once for as long as it lasts; empty for nothing to
    /// tell.
    [[nodiscard]] std::string takeTrouble();
    /// The same for as long as it lasts.
    [[nodiscard]] const std::string& trouble() const {
        return logTrouble_.lasting().empty() ? noteTrouble_.lasting() : logTrouble_.lasting();
    }

    [[nodiscard]] bool inFlight() const { return flight_.has_value(); }
    /// Whole seconds since the beginning of the flight under way; nothing on the ground.
    [[nodiscard]] std::optional<std::int64_t> flightTimeSec() const;

 private:
    struct Flight {
        std::string head;  ///< date, off time and off place
        std::int64_t startTickMs = 0;
        std::int64_t startUnixSeconds = 0;
        std::optional<std::int64_t> slowSinceMs{};
        std::int64_t notedMs = 0;
        std::string line{};  ///< complete, as if the flight had ended at the last note
    };

    void begin(bool offSeen);
    void follow(const Options& options, double groundSpeedKt);
    void note();
    void finish();
    void complete();
    void addToLog(std::string_view lines);

    const Clock& clock_;
    LineJournal log_;
    LineJournal journal_;
    std::string unwritten_;  ///< lines that the log has not taken yet
    ToldOnce noteTrouble_;
    ToldOnce logTrouble_;
    PlaceNamer place_;
    std::optional<Flight> flight_;
    bool sawSlow_ = false;
};

}  // namespace korvel
