#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cockpit/ActiveApproach.h"
#include "cockpit/ActivePlan.h"
#include "cockpit/CockpitData.h"
#include "cockpit/ShiftedClock.h"
#include "nav/alarms/AlarmBoard.h"
#include "nav/alarms/FlightAlarms.h"
#include "nav/leg/ActiveNavigation.h"
#include "nav/leg/Simulator.h"
#include "nav/leg/VerticalSpeed.h"
#include "nav/track/FlightLog.h"
#include "nav/track/TrackRecorder.h"
#include "navdb/DatabaseLoader.h"
#include "navdb/LoadReport.h"
#include "navdb/NavDatabase.h"

namespace korvel {

struct Settings;

/// Where and how the simulated aircraft begins.
struct SimulatorStart {
    GeoPoint position;
    std::int32_t headingMag = 360;  ///< 0 to 360
    double speedKt = 120;
    std::int32_t altitudeFt = 2500;
};

/// The document's places and its flight: databases, plan, active navigation, simulator, track and
/// log. Main thread only, but for what its parts allow.
class Flight {
 public:
    /// The period of tick(), which the simulator's faster time counts in.
    static constexpr std::int64_t kTickMs = 500;
    static constexpr int kFastestTime = 60;

    /// `folder` is where the load report, the flight log and the journals lie; empty: nothing of
    /// them is kept. The clock must outlive the flight.
    Flight(const Clock& clock, const std::filesystem::path& folder);
    Flight(const Flight&) = delete;
    Flight& operator=(const Flight&) = delete;
    /// Completes the flight log and sets the track's journal aside.
    ~Flight();

    /// Opens and merges the databases of these folders in place of those that were open. A plan
    /// that is in force keeps its places.
    void loadDatabases(std::span<const std::filesystem::path> folders,
                       const DatabaseLoader::Progress& progress = {});
    NavDatabase& database() { return database_; }
    const NavDatabase& database() const { return database_; }
    DatabaseLoader& loader() { return loader_; }
    const DatabaseLoader& loader() const { return loader_; }
    const LoadReport& report() const { return report_; }
    /// What the pilot must know about the charts' age at all times; empty for nothing.
    const std::string& databaseNotice() const { return databaseNotice_; }

    ActivePlan& plan() { return plan_; }
    const ActivePlan& plan() const { return plan_; }
    ActiveNavigation& navigation() { return navigation_; }
    const ActiveNavigation& navigation() const { return navigation_; }
    TrackRecorder& track() { return track_; }
    ActiveApproach& approach() { return approach_; }
    /// Other sources of alarms may join.
    AlarmBoard& alarms() { return alarms_; }

    /// At the settings' position, else where the plan begins, else at a default field.
    SimulatorStart simulatorStart(const Settings& settings) const;
    void startSimulator(const SimulatorStart& start);
    void stopSimulator();
    Simulator& simulator() { return simulator_; }
    const Simulator& simulator() const { return simulator_; }
    /// How many times faster than time the simulator flies, 1 to kFastestTime.
    void setTimeFactor(int factor);
    int timeFactor() const { return timeFactor_; }
    /// Milliseconds of the flight's own time, which the simulator may let pass faster.
    std::int64_t tickMs() const { return clock_.tickMs(); }

    /// Takes up where the aircraft is; the tick's first step. `received` holds only values that
    /// are fresh and belong to a fix.
    void lookAround(const ActiveNavigation::Aircraft& received);
    /// What commands and the tick go by from here on; its second step.
    void prepare(const Settings& settings, const Variation& variation);
    /// The half-second tick, behind lookAround() and prepare().
    void tick(const Settings& settings, const Variation& variation,
              const ActiveNavigation::Aircraft& received);

    /// To be called at each tick while the nearest airports are looked at.
    void wantNearAirports() { nearAirportsWanted_ = true; }
    /// Brings what is kept for the pages up to date: after each tick and each command.
    void refresh();
    /// Fills what the pages show of the flight.
    void collect(CockpitData& data, const Variation& variation) const;

 private:
    void lookUpNearAirports(const Settings& settings, const Variation& variation);
    void updateDatabaseNotice();
    void goOnWithPlan();
    void watchFlight(const Settings& settings, const Variation& variation);
    std::shared_ptr<const DatabaseRecord> destination();
    std::string placeHere() const;
    void collectSimulated(CockpitData& data, const Variation& variation) const;
    void collectLeg(CockpitData& data, const Variation& variation) const;

    ShiftedClock clock_;
    NavDatabase database_;
    LoadReport report_;
    DatabaseLoader loader_{database_, report_};
    std::string databaseNotice_;

    ActivePlan plan_;
    Simulator simulator_;
    TrackRecorder track_;
    FlightLog log_;
    ActiveNavigation navigation_;
    VerticalSpeed verticalSpeed_;
    int timeFactor_ = 1;
    ActiveApproach approach_;
    FlightSituation situation_;
    AlarmBoard alarms_;

    /// What the plan view was made from.
    struct PlanViewSource {
        std::uint64_t revision = 0;
        std::optional<std::size_t> active{};

        friend bool operator==(const PlanViewSource&, const PlanViewSource&) = default;
    };
    std::shared_ptr<const PlanView> planView_;
    PlanViewSource planViewSource_;

    std::shared_ptr<const std::vector<NearAirport>> nearAirports_;
    GeoPoint nearAirportsPoint_;  // where they were looked up
    bool nearAirportsWanted_ = false;
};

}  // namespace korvel
