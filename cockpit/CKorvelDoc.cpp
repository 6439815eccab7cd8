#include "cockpit/CKorvelDoc.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cockpit/FlightData.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

/// A value that was stored longer ago than this is not shown any more.
constexpr std::int64_t kFreshMs = 5000;

/// How long a port that was once found by scanning may stay without a fix's worth of data.
constexpr std::int64_t kPortPatienceMs = 10000;

/// Set beside "Port" when it was found by scanning, not chosen by the pilot.
constexpr std::string_view kPortScanned = "PortScanned";

/// Receivers send anything, also a latitude of 99 degrees.
bool isOnEarth(GeoPoint point) {
    return IsValid(point) && std::abs(point.lat) <= kPi / 2 && std::abs(point.lon) <= kPi;
}

bool isFresh(std::int64_t storedMs, std::int64_t nowMs) {
    return storedMs != kNeverStored && nowMs - storedMs < kFreshMs;
}

}  // namespace

CKorvelDoc::CKorvelDoc(const Foundations& foundations)
    : profile_(foundations.profile),
      clock_(foundations.clock),
      settings_(loadSettings(foundations.profile)),
      attitudeModule_(foundations.pluginFolder),
      input_(foundations.clock,
             {.answer = [this](std::string_view bytes) { gpsPort_.write(bytes); },
              .attitude = [this](std::string_view line) { attitudeModule_.processMessage(line); }}),
      gpsPort_(foundations.openDevice, foundations.clock),
      gyroPort_(foundations.openDevice, foundations.clock),
      monitor_({gpsPort_, gyroPort_, *this, input_, foundations.profile, foundations.clock}),
      charts_(foundations.clock, foundations.folder),
      flight_({foundations.clock, charts_.database(), charts_.userRecords(), foundations.folder}),
      userFixes_(profile_, charts_, flight_.plan()),
      portFromScan_(foundations.profile.getInt(kOptionsSection, kPortScanned, 0) != 0),
      lastConnectedMs_(foundations.clock.tickMs()) {
    input_.setOtherSource(&flight_.simulator());
    input_.decoder().setVariationLookup(
        [this](GeoPoint here) { return charts_.database().variationAt(here); });
    input_.decoder().ignoreReceiverVariation(settings_.ignoreMagVar != 0);
    monitor_.choosePort(portChoice(PortSettings::parse(settings_.port)));
    data_ = collectData();
}

CKorvelDoc::~CKorvelDoc() {
    monitor_.useSource(nullptr);
    gpsPort_.stop();
    gyroPort_.stop();
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

void CKorvelDoc::tick() {
    if (charts_.takeLoaded())
        forgetDatabases();
    monitor_.gpsTick();
    openGyroPort();
    status_ = monitor_.connectionStatus(true);
    reconsiderPort();
    const Aircraft aircraft = received();
    flight_.lookAround(aircraft);
    flight_.prepare(settings_, input_.variation());
    if (beforeNavigation)
        beforeNavigation();
    flight_.tick(settings_, input_.variation(), aircraft);
    nearAirports_.update(charts_.database(), flight_.navigation().present().position, settings_,
                         input_.variation());
    flight_.refresh();
    CockpitData data = collectData();
    attitude_.update(data, flight_.tickMs());
    show(std::move(data));
}

void CKorvelDoc::refresh() {
    flight_.refresh();
    CockpitData data = collectData();
    // The attitude comes out of the ticks alone.
    data.turnRateDegPerSec = data_.turnRateDegPerSec;
    data.bankDeg = data_.bankDeg;
    data.pitchDeg = data_.pitchDeg;
    show(std::move(data));
}

void CKorvelDoc::show(CockpitData data) {
    if (data != data_) {
        data_ = std::move(data);
        ++revision_;
    }
}

std::string CKorvelDoc::takeTrouble() {
    std::string trouble = profile_.takeTrouble();
    return trouble.empty() ? flight_.takeTrouble() : trouble;
}

void CKorvelDoc::applySettings(const Settings& changed) {
    storeChangedSettings(profile_, settings_, changed);
    const bool otherPort = changed.port != settings_.port;
    settings_ = changed;
    if (otherPort) {
        portFromScan_ = false;
        profile_.setInt(kOptionsSection, kPortScanned, 0, true);
        useSource(nullptr);
    }
    input_.decoder().ignoreReceiverVariation(settings_.ignoreMagVar != 0);
    PortChoice choice =
        portChoice(otherPort ? PortSettings::parse(settings_.port) : monitor_.choice().gps);
    if (!(choice == monitor_.choice())) {
        gyroPort_.stop();  // the next tick opens what is wanted now
        monitor_.choosePort(std::move(choice));
    }
    data_ = collectData();
    ++revision_;
}

void CKorvelDoc::useSource(std::unique_ptr<SentenceSource> source) {
    portFromScan_ = false;
    monitor_.useSource(source.get());
    source_ = std::move(source);
}

void CKorvelDoc::onLine(std::string_view line, std::int64_t arrivedMs) {
    input_.onSentence(line, arrivedMs);
}

void CKorvelDoc::openGyroPort() {
    if (settings_.viaGyro == 0 || settings_.portGyro.empty())
        return;
    if (gyroPort_.hasFailed())
        gyroPort_.stop();
    if (!gyroPort_.isRunning()) {
        gyroPort_.choose(monitor_.choice().gyro);
        // A failure shows as a silent receiver; the next tick tries again.
        static_cast<void>(gyroPort_.start(*this));
    }
}

void CKorvelDoc::reconsiderPort() {
    const std::int64_t now = clock_.tickMs();
    const GpsFix fix = input_.store().copy();
    if ((fix.sentenceFlags & SentenceFlag::kChecksumCorrect) != 0)
        lastConnectedMs_ = now;
    if (portFromScan_ && !monitor_.scanning() && now - lastConnectedMs_ >= kPortPatienceMs) {
        portFromScan_ = false;
        monitor_.choosePort(portChoice({}));
    }
}

PortChoice CKorvelDoc::portChoice(std::optional<PortSettings> gps) const {
    return {.gps = std::move(gps),
            .viaGyro = settings_.viaGyro != 0,
            .gyro = PortSettings::of(settings_.portGyro, settings_.baudGyro)};
}

Aircraft CKorvelDoc::received() {
    constexpr double kFullCircleDeg = 360;
    Aircraft aircraft;
    // hasFix() is true also for what has taken the receiver's place.
    if (input_.isSupplanted() || !input_.hasFix(false))
        return aircraft;
    const std::int64_t now = clock_.tickMs();
    const GpsFix& fix = input_.store().own();
    if (isFresh(fix.positionTickMs, now) && isOnEarth(fix.position))
        aircraft.position = fix.position;
    if (isFresh(fix.groundSpeedTickMs, now) && std::isfinite(fix.groundSpeedKt))
        aircraft.groundSpeedKt = fix.groundSpeedKt;
    // Neither the value for no angle nor what no angle can be.
    if (isFresh(fix.trackTickMs, now) && fix.trackMag >= 0 && fix.trackMag <= kFullCircleDeg)
        aircraft.trackMag = fix.trackMag;
    if (isFresh(fix.altitudeTickMs, now) && isAltitude(input_.altitudeFt()))
        aircraft.altitudeFt = input_.correctedAltitudeFt();
    return aircraft;
}

CockpitData CKorvelDoc::collectData() {
    CockpitData data;
    data.status = status_;
    data.now = clock_.localNow();
    data.altUnit = settings_.altUnit;
    data.distanceUnit = distanceUnitOf(settings_.gsUnit);
    collectFix(data);
    constexpr std::int64_t kSecondsPerDay = 86400;
    data.utcSecondOfDay = static_cast<int>(clock_.unixSeconds() % kSecondsPerDay);
    data.databaseNotice = charts_.notice();
    fillFlightData(data, flight_, input_.variation());
    if (data.position)
        data.nearAirports = nearAirports_.shown();
    return data;
}

void CKorvelDoc::collectFix(CockpitData& data) {
    constexpr std::int64_t kMsPerSecond = 1000;
    const GpsFix fix = input_.store().copy();
    data.fixQuality = fix.fixQuality;
    data.fix3D = fix.fix3D != 0;
    data.satsInUse = fix.satsInUse;
    data.satellites = unpackSatellites(fix.satellites);
    std::ranges::sort(data.satellites, {}, &Satellite::number);
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
