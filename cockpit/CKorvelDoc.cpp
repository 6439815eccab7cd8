#include "cockpit/CKorvelDoc.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cockpit/FlightData.h"
#include "cockpit/PlaceClass.h"
#include "cockpit/RestOfFlight.h"
#include "cockpit/SentinelValues.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "geo/OnEarth.h"
#include "geo/Sun.h"
#include "geo/Units.h"

namespace korvel {
namespace {

/// A value that was stored longer ago than this is not shown any more.
constexpr std::int64_t kFreshMs = 5000;
/// An aircraft rolls by tens of degrees in a second.
constexpr std::int64_t kAttitudeFreshMs = 1000;

/// Set beside "Port" when it was found by scanning, not chosen by the pilot.
constexpr std::string_view kPortScanned = "PortScanned";

bool isFresh(std::int64_t storedMs, std::int64_t nowMs) {
    return storedMs != kNeverStored && nowMs - storedMs < kFreshMs;
}

}  // namespace

CKorvelDoc::CKorvelDoc(const Foundations& foundations)
    : profile_(foundations.profile),
      clock_(foundations.clock),
      receiver_(loadReceiverChoice(foundations.profile)),
      settings_(loadSettings(foundations.profile)),
      attitudeModule_(foundations.pluginFolder),
      input_(foundations.clock,
             {.answer = [this](std::string_view bytes) { gpsPort_.write(bytes); },
              .attitude = [this](std::string_view line) { attitudeModule_.processMessage(line); }}),
      gpsPort_(foundations.openDevice, foundations.clock),
      modulePort_(foundations.openDevice, foundations.clock,
                  [this](std::string_view line) { attitudeModule_.processMessage(line); }),
      monitor_({gpsPort_, *this, input_, foundations.profile, foundations.clock}),
      charts_(foundations.clock, foundations.folder),
      flight_({foundations.clock, charts_.database(), charts_.userRecords(), foundations.folder}),
      terrainWatch_(ground_.terrain(), charts_.database(), flight_.alarms()),
      airspaceWatch_(ground_.airspaces(), flight_.alarms()),
      aircraft_(profile_, flight_.timeOfDay(), flight_.alarms()),
      nightWatch_(flight_.alarms()),
      memory_(profile_, flight_, charts_.database()),
      emergency_(flight_, charts_.database()),
      userFixes_(profile_, charts_, flight_.plan()),
      knownPlaces_(profile_),
      portFromScan_(foundations.profile.getInt(kOptionsSection, kPortScanned, 0) != 0) {
    const auto traceBytes = [this](std::string_view bytes, std::string_view tag) {
        input_.store().traceBytes(bytes, tag);
    };
    gpsPort_.setTrace(traceBytes);
    modulePort_.setTrace(traceBytes);
    input_.understandAllTalkers(receiver_.allTalkers);
    input_.setOtherSource(&flight_.simulator());
    input_.decoder().setVariationLookup(
        [this](GeoPoint here) { return charts_.database().variationAt(here); });
    input_.decoder().ignoreReceiverVariation(settings_.ignoreMagVar != 0);
    monitor_.choosePort(portChoice());
    trafficChoice_ = loadTrafficChoice(profile_);
    nearAirports_.setFilter(loadNearestFilter(profile_));
    traffic_.addTo(flight_.alarms());
    listenToNetwork();
    data_ = collectData();
}

CKorvelDoc::~CKorvelDoc() {
    monitor_.useSource(nullptr);
    gpsPort_.stop();
}

void CKorvelDoc::loadDatabases(std::span<const std::filesystem::path> folders) {
    charts_.load(folders);
    forgetDatabases();
}

/// What was found in the former ones goes.
void CKorvelDoc::forgetDatabases() {
    nearAirports_.forget();
    flight_.approach().forget();
    if (onOtherDatabases)
        onOtherDatabases();
}

void CKorvelDoc::watchGround() {
    const Aircraft& present = flight_.navigation().present();
    TerrainWatch::Situation now{
        .position = known(present.position),
        .trackTrueDeg = known(input_.variation().MagneticToTrue(present.trackMag), kNoAngle),
        .groundSpeedKt = present.groundSpeedKt,
        .verticalSpeedFpm = flight_.verticalSpeedFpm(),
        .turnRateDegPerSec = data_.turnRateDegPerSec};
    if (present.altitudeFt)
        now.altitudeFt = *present.altitudeFt - altimeterOffsetFt_.value_or(0);
    const auto destination = flight_.destination();
    now.destination = destination.get();
    terrainWatch_.update(now);
    AirspaceWatch::Situation above{.position = now.position,
                                   .trackTrueDeg = now.trackTrueDeg,
                                   .groundSpeedKt = now.groundSpeedKt,
                                   .verticalSpeedFpm = now.verticalSpeedFpm,
                                   .altUnit = settings_.altUnit};
    if (now.altitudeFt)
        above.altitudeFt = RoundToInt(*now.altitudeFt);
    if (const auto ground = now.position ? ground_.terrain().heightFt(*now.position) : std::nullopt)
        above.groundFt = RoundToInt(*ground);
    airspaceWatch_.update(above, clock_.tickMs());
}

void CKorvelDoc::watchNight() {
    NightWatch::Situation now{.position = known(flight_.navigation().present().position),
                              .unixSeconds = flight_.timeOfDay().unixSeconds(),
                              .localSecondOfDay = data_.secondOfDay()};
    if (const auto rest = restOfFlight(data_)) {
        now.end = rest->end;
        now.secondsToEnd = rest->seconds;
    }
    nightWatch_.update(now);
}

void CKorvelDoc::tick() {
    ground_.takeLoaded();
    if (charts_.takeLoaded())
        forgetDatabases();
    monitor_.gpsTick();
    modulePort_.keepOpen(modulesOwnPort());
    status_ = monitor_.connectionStatus(true);
    const Aircraft aircraft = received();
    flight_.setUtc(receivedUtc());
    flight_.lookAround(aircraft);
    flight_.prepare(settings_, input_.variation(), altimeterOffsetFt_.value_or(0));
    if (beforeNavigation)
        beforeNavigation();
    watchTraffic();
    watchGround();
    watchAircraft();
    watchNight();
    flight_.tick(settings_, input_.variation(), aircraft);
    const auto present = known(flight_.navigation().present().position);
    nearAirports_.update(charts_.database(), present ? present : lastPosition_, settings_,
                         input_.variation());
    flight_.refresh();
    CockpitData data = collectData();
    attitude_.update(data, flight_.tickMs());
    takeMeasuredAttitude(data);
    show(std::move(data));
    memory_.keep();
    profile_.keepSaved(clock_.tickMs());
}

void CKorvelDoc::refresh() {
    flight_.refresh();
    CockpitData data = collectData();
    // The attitude comes out of the ticks alone.
    data.turnRateDegPerSec = data_.turnRateDegPerSec;
    data.bankDeg = data_.bankDeg;
    data.pitchDeg = data_.pitchDeg;
    data.attitudeMeasured = data_.attitudeMeasured;
    show(std::move(data));
}

void CKorvelDoc::watchTraffic() {
    std::optional<MovingAircraft> own;
    if (const Aircraft& present = flight_.navigation().present(); IsValid(present.position)) {
        own = MovingAircraft{.position = present.position, .groundSpeedKt = present.groundSpeedKt};
        if (present.trackMag != kNoAngle)
            own->trackTrueDeg = input_.magneticToTrue(present.trackMag);
    }
    // The traffic around the receiver is not that around a simulated aircraft.
    const bool isTold = hearsGdl90_ && !input_.isSupplanted();
    const std::optional<TrafficTable> heard =
        isTold ? std::optional(gdl90_.traffic()) : std::nullopt;
    traffic_.update(heard ? &*heard : nullptr, own, settings_.altUnit, clock_.tickMs());
}

void CKorvelDoc::watchAircraft() {
    const Aircraft& present = flight_.navigation().present();
    const NavigationState leg = flight_.navigation().state();
    const FlightLog::Options log = FlightLog::Options::from(settings_);
    aircraft_.update(
        {.flightMs = flight_.tickMs(),
         .simulated = flight_.navigation().simulated(),
         .groundSpeedKt = present.groundSpeedKt,
         .trackTrueDeg = known(input_.variation().MagneticToTrue(present.trackMag), kNoAngle),
         .altitudeFt = present.altitudeFt,
         .flyingFromKt = log.startKt,
         .flyingToKt = log.endKt,
         .pathTargetFt = known(leg.pathTargetAltFt),
         .pathNm = known(leg.pathDistanceNm, kNoDistanceNm),
         .pathEnd = leg.pathEnd});
}

void CKorvelDoc::takeMeasuredAttitude(CockpitData& data) const {
    const auto attitude = gdl90_.attitude();
    if (!hearsGdl90_ || data.simulated || !attitude || !attitude->values.rollDeg ||
        !attitude->values.pitchDeg || clock_.tickMs() - attitude->arrivedMs >= kAttitudeFreshMs)
        return;
    data.bankDeg = attitude->values.rollDeg;
    data.pitchDeg = attitude->values.pitchDeg;
    data.attitudeMeasured = true;
}

void CKorvelDoc::chooseNearest(const NearestFilter& filter) {
    nearAirports_.setFilter(filter);
    storeNearestFilter(profile_, filter);
    refresh();
}

void CKorvelDoc::chooseTraffic(const TrafficChoice& choice) {
    trafficChoice_ = choice;
    storeTrafficChoice(profile_, choice);
    refresh();
}

void CKorvelDoc::show(CockpitData data) {
    if (data != data_) {
        data_ = std::move(data);
        ++revision_;
    }
}

std::string CKorvelDoc::takeTrouble() {
    std::string trouble = profile_.takeTrouble();
    if (trouble.empty())
        trouble = flight_.takeTrouble();
    return trouble.empty() ? modulePort_.takeTrouble() : trouble;
}

std::vector<std::string> CKorvelDoc::troubles() const {
    std::vector<std::string> found = flight_.troubles();
    if (!profile_.trouble().empty())
        found.insert(found.begin(), profile_.trouble());
    return found;
}

void CKorvelDoc::endSession() {
    flight_.endSession();
    profile_.save();
}

void CKorvelDoc::applySettings(const Settings& changed) {
    storeChangedSettings(profile_, settings_, changed);
    const bool otherPort = changed.port != settings_.port;
    settings_ = changed;
    if (otherPort) {
        portFromScan_ = false;
        profile_.setInt(kOptionsSection, kPortScanned, 0, true);
        chooseReceiver({.allTalkers = receiver_.allTalkers});
        useSource(nullptr);
    }
    input_.decoder().ignoreReceiverVariation(settings_.ignoreMagVar != 0);
    modulePort_.keepOpen(modulesOwnPort());  // lets go of a port before the monitor takes it
    monitor_.choosePort(portChoice());
    data_ = collectData();
    ++revision_;
}

void CKorvelDoc::chooseReceiver(const ReceiverChoice& choice) {
    const bool otherSource = choice.source != receiver_.source;
    receiver_ = choice;
    storeReceiverChoice(profile_, choice);
    input_.understandAllTalkers(choice.allTalkers);
    if (otherSource) {
        useSource(nullptr);
        listenToNetwork();
    }
}

void CKorvelDoc::listenToNetwork() {
    const auto address = SourceAddress::parse(receiver_.source);
    if (!address)
        return;
    const bool isGdl90 = address->kind == SourceAddress::Kind::Gdl90;
    useSource(std::make_unique<NetworkSource>(*address, clock_, isGdl90 ? &gdl90_ : nullptr));
    input_.countsNoSatellites(isGdl90);
    hearsGdl90_ = isGdl90;
}

CKorvelDoc::Arrivals CKorvelDoc::arrivals() {
    constexpr std::int64_t kMsPerSecond = 1000;
    Arrivals arrivals{.bytes = source_ ? source_->bytesReceived() : gpsPort_.bytesReceived()};
    const auto shared = input_.store().shared().lock();
    arrivals.sentences = shared->correctSentences;
    if (shared->correctMs != kNeverStored)
        arrivals.sentenceAgeSec =
            static_cast<int>((clock_.tickMs() - shared->correctMs) / kMsPerSecond);
    return arrivals;
}

void CKorvelDoc::setAltimeterOffsetFt(std::optional<std::int32_t> feet) {
    // No weather makes more of it; what sums up with it must stay a number.
    if (feet)
        feet = std::clamp(*feet, -kHighestAltitudeFt, kHighestAltitudeFt);
    if (feet == altimeterOffsetFt_)
        return;
    altimeterOffsetFt_ = feet;
    input_.setAltitudeOffsetFt(feet.value_or(kNoAltitudeOffset));
    flight_.altitudeShifted();
}

std::optional<std::int32_t> CKorvelDoc::receiverAltitudeFt() {
    if (input_.isSupplanted())
        return input_.altitudeFt();
    const bool isGood = input_.isAltitudeGood() && isAltitude(input_.altitudeFt());
    return isGood ? std::optional(input_.altitudeFt()) : std::nullopt;
}

void CKorvelDoc::useSource(std::unique_ptr<SentenceSource> source) {
    const SourceKind former = sourceKind();
    input_.countsNoSatellites(false);
    hearsGdl90_ = false;
    monitor_.useSource(source.get());
    gdl90_.forget();
    source_ = std::move(source);
    // What the former one said last is not the new one's word.
    input_.queue().lock()->clear();
    input_.store().reset();
    attitude_.forget();
    aircraft_.forgetMotion();
    if (sourceKind() != former || sourceKind() != SourceKind::Receiver)
        lastPosition_.reset();  // nobody was there
    flight_.sourceChanged(sourceKind() == SourceKind::Receiver);
}

bool CKorvelDoc::hasLiveFix() const {
    return sourceKind() == SourceKind::Receiver && !data_.simulated && data_.position;
}

bool CKorvelDoc::lacksReceiverVariation() const {
    return hasLiveFix() && settings_.ignoreMagVar == 0 && data_.trackMagDeg &&
           input_.store().own().magVariation == kNoAngle && data_.variationDeg;
}

void CKorvelDoc::onLine(std::string_view line, std::int64_t arrivedMs) {
    input_.onSentence(line, arrivedMs);
}

PortChoice CKorvelDoc::portChoice() const {
    return {.gps = PortSettings::parse(settings_.port),
            .found = portFromScan_,
            .viaGyro = settings_.viaGyro != 0,
            .gyroConnected = settings_.gyroConnected != 0,
            .gyro = PortSettings::of(settings_.portGyro, settings_.baudGyro)};
}

std::optional<PortSettings> CKorvelDoc::modulesOwnPort() const {
    const PortSettings gyro = PortSettings::of(settings_.portGyro, settings_.baudGyro);
    const bool isCarrier = settings_.viaGyro != 0 && source_ == nullptr;
    const bool isWanted = settings_.gyroConnected != 0 && !isCarrier && !gyro.name().empty();
    return isWanted ? std::optional(gyro) : std::nullopt;
}

Aircraft CKorvelDoc::received() {
    constexpr double kFullCircleDeg = 360;
    Aircraft aircraft;
    // hasFix() is true also for what has taken the receiver's place.
    if (input_.isSupplanted() || !input_.hasFix(false))
        return aircraft;
    const std::int64_t now = clock_.tickMs();
    const GpsFix& fix = input_.store().own();
    if (isFresh(fix.positionTickMs, now) && IsOnEarth(fix.position))
        aircraft.position = fix.position;
    if (isFresh(fix.groundSpeedTickMs, now) && std::isfinite(fix.groundSpeedKt))
        aircraft.groundSpeedKt = fix.groundSpeedKt;
    // Neither the value for no angle nor what no angle can be.
    if (isFresh(fix.trackTickMs, now) && fix.trackMag >= 0 && fix.trackMag <= kFullCircleDeg)
        aircraft.trackMag = fix.trackMag;
    if (receiverAltitudeFt())
        aircraft.altitudeFt = input_.correctedAltitudeFt();
    return aircraft;
}

/// Of what is told apart from receivers, the computer knows the time better than a log.
std::optional<std::int64_t> CKorvelDoc::receivedUtc() const {
    constexpr std::int64_t kMsPerSecond = 1000;
    const std::int64_t now = clock_.tickMs();
    const GpsFix& fix = input_.store().own();
    if (sourceKind() != SourceKind::Receiver || !isFresh(fix.utcTickMs, now))
        return std::nullopt;
    return fix.utcSeconds + (now - fix.utcTickMs) / kMsPerSecond;
}

CockpitData CKorvelDoc::collectData() {
    CockpitData data;
    data.status = status_;
    data.source = sourceKind();
    data.sourceEnded = source_ && source_->hasEnded();
    data.now = flight_.timeOfDay().localNow();
    data.altUnit = settings_.altUnit;
    data.distanceUnit = distanceUnitOf(settings_.gsUnit);
    collectFix(data);
    constexpr std::int64_t kSecondsPerDay = 86400;
    data.utcSecondOfDay = static_cast<int>(flight_.timeOfDay().unixSeconds() % kSecondsPerDay);
    data.databaseNotice = charts_.notice();
    fillFlightData(data, flight_, input_.variation());
    (data.position ? data.nearAirports : data.formerNearAirports) = nearAirports_.shown();
    data.nearestFilter = nearAirports_.filter();
    emergency_.update();
    data.emergency = emergency_.isOn();
    aircraft_.fill(data);
    data.enduranceRing = MapPlaceOptions::from(settings_).shows(PlaceLayerBit::EnduranceRing);
    collectSun(data);
    data.traffic = traffic_.shown(trafficChoice_);
    if (data.position)
        data.airspaces = airspaceWatch_.shown();
    return data;
}

void CKorvelDoc::collectSun(CockpitData& data) const {
    const std::int64_t now = flight_.timeOfDay().unixSeconds();
    const SunDay day = data.position ? sunDay(*data.position, now) : SunDay();
    if (!data.position || day.kind != SunDay::Kind::RisesAndSets)
        return;
    constexpr std::int64_t kMinute = 60;  // seconds of it would change with every mile
    const auto local = [&](std::int64_t moment) {
        return static_cast<int>((data.secondOfDay() + moment - now) / kMinute * kMinute);
    };
    data.sunriseSecondOfDay = local(day.rise);
    data.sunsetSecondOfDay = local(day.set);
}

void CKorvelDoc::collectFix(CockpitData& data) {
    constexpr std::int64_t kMsPerSecond = 1000;
    const GpsFix fix = input_.store().copy();
    data.fixQuality = fix.fixQuality;
    data.fix3D = fix.fixQuality != 0 && input_.is3D();
    data.fix2D = fix.fixQuality != 0 && !data.fix3D;
    data.altimeterOffsetFt = altimeterOffsetFt_;
    data.satsInUse = fix.satsInUse;
    if (input_.understandsAllTalkers()) {
        data.satellites = satellitesOf(input_.sky());
    } else {
        data.satellites = unpackSatellites(fix.satellites);
        std::ranges::sort(data.satellites, {}, &Satellite::number);
    }
    data.receiverActive = (fix.sentenceFlags & SentenceFlag::kBytesArrive) != 0;
    const Aircraft aircraft = received();
    if (IsValid(aircraft.position)) {
        data.position = aircraft.position;
        lastPosition_ = aircraft.position;
        lastPositionMs_ = fix.positionTickMs;
    } else if (data.status.empty()) {
        data.status = text(kStatusTexts.noGpsSignal);
    }
    data.groundSpeedKt = aircraft.groundSpeedKt;
    data.altitudeFt = aircraft.altitudeFt;
    if (aircraft.trackMag != kNoAngle) {
        data.trackMagDeg = aircraft.trackMag;
        data.trackTrueDeg = input_.magneticToTrue(aircraft.trackMag);
    }
    if (lastPosition_) {
        data.lastPosition = lastPosition_;
        data.positionAgeSec = static_cast<int>((clock_.tickMs() - lastPositionMs_) / kMsPerSecond);
    }
}

}  // namespace korvel
