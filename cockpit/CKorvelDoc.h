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

#include "cockpit/AircraftWatch.h"
#include "cockpit/AirspaceWatch.h"
#include "cockpit/AttitudeModule.h"
#include "cockpit/Charts.h"
#include "cockpit/CockpitData.h"
#include "cockpit/DerivedAttitude.h"
#include "cockpit/Emergency.h"
#include "cockpit/Flight.h"
#include "cockpit/FlightMemory.h"
#include "cockpit/GroundData.h"
#include "cockpit/KnownPlaces.h"
#include "cockpit/NearAirportList.h"
#include "cockpit/NightWatch.h"
#include "cockpit/TerrainWatch.h"
#include "cockpit/TrafficWatch.h"
#include "cockpit/UserFixes.h"
#include "config/ProfileFile.h"
#include "config/ReceiverChoice.h"
#include "config/Settings.h"
#include "geo/Geoid.h"
#include "platform/Clock.h"
#include "platform/SerialDevice.h"
#include "receiver/ConnectionMonitor.h"
#include "receiver/GpsInput.h"
#include "receiver/ModulePort.h"
#include "receiver/PortSettings.h"
#include "receiver/SentenceSource.h"
#include "receiver/SerialSource.h"
#include "receiver/gdl90/Gdl90Receiver.h"

namespace korvel {

/// The document: settings, receiver, fix and what is made of them. It knows no window and runs the
/// same without one. Main thread only, but for onLine(), which the sources' threads call.
class CKorvelDoc final : private SentenceListener {
 public:
    /// What it is built on; all of it outlives the document.
    struct Foundations {
        ProfileFile& profile;
        const Clock& clock;
        SerialDeviceOpener openDevice;
        /// For the load report, the flight log and the journals; empty: nothing of them is kept.
        std::filesystem::path folder{};
        /// Where plug-ins are; empty: none is loaded.
        std::filesystem::path pluginFolder{};
    };

    /// Reads all settings. The port is opened by the first tick.
    explicit CKorvelDoc(const Foundations& foundations);
    CKorvelDoc(const CKorvelDoc&) = delete;
    CKorvelDoc& operator=(const CKorvelDoc&) = delete;
    /// Stops the sources and ends their threads.
    ~CKorvelDoc() override;

    /// The half-second tick: decodes what has arrived, steps the connection, flies the plan and
    /// brings the data of the pages up to date.
    void tick();

    /// Brings the data of the pages up to date between two ticks, after a command.
    void refresh();

    /// Called within each tick when the position is known and nothing is made of it yet: the
    /// moment for commands that shall count in this very tick.
    std::function<void()> beforeNavigation;

    /// Plan, simulator, track. What is done there shows with the next tick.
    Flight& flight() { return flight_; }
    const Flight& flight() const { return flight_; }

    /// Where the simulator is to begin, unless the pilot says otherwise.
    SimulatorStart simulatorStart() const {
        return proposedSimulatorStart(settings_, flight_.plan().entries(), charts_.database());
    }
    /// The same at a place that the pilot chooses.
    SimulatorStart simulatorStart(GeoPoint place, std::optional<std::int32_t> altitudeFt) const {
        return simulatorStartAt(place, altitudeFt, flight_.plan().entries(), charts_.database());
    }

    /// The databases. What is loaded beside them comes into use at a tick.
    Charts& charts() { return charts_; }
    const Charts& charts() const { return charts_; }
    /// Loads the databases of these folders and returns when they are in use. A plan that is in
    /// force keeps its places.
    void loadDatabases(std::span<const std::filesystem::path> folders);
    /// Called when other databases have come into use: rows found in the former ones mean nothing
    /// any more.
    std::function<void()> onOtherDatabases;

    /// Land and water and what stands on it.
    GroundData& ground() { return ground_; }
    const GroundData& ground() const { return ground_; }

    /// The points that the pilot has marked.
    UserFixes& userFixes() { return userFixes_; }

    /// The places that the pilot looks for.
    KnownPlaces& knownPlaces() { return knownPlaces_; }
    /// What to offer before a letter is typed, as seen from `near`.
    [[nodiscard]] std::vector<KnownPlace> offeredPlaces(std::optional<GeoPoint> near) {
        return knownPlaces_.offered(charts_.database(), flight_.plan().entries(), near);
    }

    /// What the pages show, as of the last tick.
    const CockpitData& cockpitData() const { return data_; }

    /// What could not be saved or recorded, for the pilot, one message a call and each told once
    /// for as long as it lasts; empty for nothing to tell.
    [[nodiscard]] std::string takeTrouble();
    /// All of that for as long as it lasts.
    [[nodiscard]] std::vector<std::string> troubles() const;
    /// The orderly end of the program: everything that is to be kept is saved, as far as it can be,
    /// and takeTrouble() tells what could not be. Calling it again does no harm.
    void endSession();

    /// What a program that was killed goes on with.
    FlightMemory& memory() { return memory_; }

    /// Grows whenever something in cockpitData() has changed.
    std::uint64_t revision() const { return revision_; }

    /// Whether the receiver's port is searched for.
    bool searchesPort() const { return monitor_.scanning(); }
    /// Whether that is because the receiver is gone from the port that the pilot chose.
    bool searchesLostReceiver() const { return monitor_.searchesLost(); }
    /// What the receiver is heard through, or listened for at present: the port and its speed, or
    /// the name of another source.
    std::string portLabel() const { return monitor_.sourceLabel(); }

    /// Who speaks in place of GP and is not understood: "GN"; empty for nobody.
    std::string otherTalker() const { return input_.otherTalker(); }

    const Clock& clock() const { return clock_; }

    const Settings& settings() const { return settings_; }
    /// Puts changed settings in force and into the profile, which reaches its file within 2 s of
    /// ticks. A port among them counts as chosen by the pilot from now on.
    void applySettings(const Settings& changed);

    const ReceiverChoice& receiverChoice() const { return receiver_; }
    /// Puts it in force and into the profile. Another receiver in the network is listened to from
    /// the next tick on, and without one the port is again.
    void chooseReceiver(const ReceiverChoice& choice);
    /// For receivers that tell heights above the ellipsoid. Before the first tick.
    void setGeoid(std::optional<Geoid> geoid) { gdl90_.setGeoid(std::move(geoid)); }

    /// What has come from the receiver since it was first listened to.
    struct Arrivals {
        std::uint64_t bytes = 0;
        std::uint64_t sentences = 0;          ///< with a correct checksum
        std::optional<int> sentenceAgeSec{};  ///< of the newest
    };
    Arrivals arrivals();

    /// What the altimeter reads more than the receiver; nothing when the pilot has told nothing.
    /// It is forgotten with the program: another day has another pressure.
    std::optional<std::int32_t> altimeterOffsetFt() const { return altimeterOffsetFt_; }
    void setAltimeterOffsetFt(std::optional<std::int32_t> feet);
    /// Uncorrected, of what supplies the position; nothing when it is not good.
    std::optional<std::int32_t> receiverAltitudeFt();

    /// Listens to this source instead of a port, whatever the settings say, until the pilot chooses
    /// another port.
    void useSource(std::unique_ptr<SentenceSource> source);
    /// A receiver tells where the aircraft is: what takes its place hides it.
    bool hasLiveFix() const;
    /// The receiver has a fix and moves, and what is magnetic about it is the database's word.
    bool lacksReceiverVariation() const;

    /// To be called at each tick while the satellites are looked at.
    void wantSatellites() { input_.satellitesForDisplay(); }
    /// The same for the nearest airports.
    void wantNearAirports() { nearAirports_.want(); }

    /// The pilot's aircraft, fuel and wind. What is done there shows with the next refresh() or
    /// tick.
    AircraftWatch& aircraft() { return aircraft_; }

    Emergency& emergency() { return emergency_; }

    /// Of the nearest airports.
    const NearestFilter& nearestFilter() const { return nearAirports_.filter(); }
    /// Puts it in force and into the profile.
    void chooseNearest(const NearestFilter& filter);

    const TrafficChoice& trafficChoice() const { return trafficChoice_; }
    /// Puts it in force and into the profile.
    void chooseTraffic(const TrafficChoice& choice);

    AttitudeModule& attitudeModule() { return attitudeModule_; }
    const ModulePort& modulePort() const { return modulePort_; }

    void setTracing(bool on) { input_.store().setTracing(on); }
    std::vector<std::string> takeTrace() { return input_.store().takeTrace(); }

 private:
    void onLine(std::string_view line, std::int64_t arrivedMs) override;

    void listenToNetwork();
    void forgetDatabases();
    void watchTraffic();
    void watchAircraft();
    /// In place of what is derived, while the receiver tells it.
    void takeMeasuredAttitude(CockpitData& data) const;
    PortChoice portChoice() const;
    /// The module's port, unless the receiver speaks through it or there is none.
    std::optional<PortSettings> modulesOwnPort() const;
    /// What of the fix is fresh; nothing without one.
    Aircraft received();
    SourceKind sourceKind() const { return source_ ? source_->kind() : SourceKind::Receiver; }
    std::optional<std::int64_t> receivedUtc() const;
    CockpitData collectData();
    void watchGround();
    void watchNight();
    void show(CockpitData data);
    void collectFix(CockpitData& data);
    void collectSun(CockpitData& data) const;

    ProfileFile& profile_;
    const Clock& clock_;
    ReceiverChoice receiver_;  // read before the settings
    Settings settings_;
    AttitudeModule attitudeModule_;  // before the ports, whose threads call it
    GpsInput input_;
    Gdl90Receiver gdl90_;  // before the source that it serves
    bool hearsGdl90_ = false;
    TrafficChoice trafficChoice_;
    TrafficWatch traffic_;   // before the flight, whose alarms ask it
    SerialSource gpsPort_;   // or the module's, while the receiver speaks through it
    ModulePort modulePort_;  // when it does not
    std::unique_ptr<SentenceSource> source_;  // in the ports' place; null for none
    ConnectionMonitor monitor_;
    Charts charts_;
    GroundData ground_;
    Flight flight_;
    TerrainWatch terrainWatch_;
    AirspaceWatch airspaceWatch_;
    AircraftWatch aircraft_;
    NightWatch nightWatch_;
    FlightMemory memory_;
    NearAirportList nearAirports_;
    Emergency emergency_;
    UserFixes userFixes_;
    KnownPlaces knownPlaces_;

    std::optional<std::int32_t> altimeterOffsetFt_;
    std::string status_;  // of the connection, empty while there is a fix
    bool portFromScan_;   // the port in the settings was found by an earlier run's scan
    std::optional<GeoPoint> lastPosition_;
    std::int64_t lastPositionMs_ = 0;

    DerivedAttitude attitude_;
    CockpitData data_;
    std::uint64_t revision_ = 1;
};

}  // namespace korvel
