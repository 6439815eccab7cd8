#include "cockpit/FlightMemory.h"

#include <array>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "base/TextNumbers.h"
#include "cockpit/Flight.h"
#include "config/EscapedText.h"
#include "config/ProfileFile.h"
#include "navdb/NavDatabase.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::string_view kPlanKey = "OpenPlan";
constexpr std::string_view kDirectKey = "DirectTo";
constexpr std::string_view kRouteKey = "OpenRoute";

/// A direct-to as the profile holds it: key, name, and the numbers below, all of them apart by '|'.
/// Angles and positions in degrees, altitudes in feet.
constexpr char kBetween = '|';
constexpr std::size_t kNumbers = 8;
constexpr int kDecimals = 8;
/// A place of the same key further off is another one.
constexpr double kSamePlaceNm = 1;

std::array<double, kNumbers> numbersOf(const NavigationState& state) {
    return {state.activeWaypoint.lat * kRadToDeg,
            state.activeWaypoint.lon * kRadToDeg,
            state.legStart.lat * kRadToDeg,
            state.legStart.lon * kRadToDeg,
            state.desiredTrack,
            state.obsCourse,
            static_cast<double>(state.pathTargetAltFt),
            state.pathAngle * kRadToDeg};
}

NavigationState stateOf(const std::array<double, kNumbers>& numbers) {
    NavigationState state;
    state.activeWaypoint = {numbers[0] * kDegToRad, numbers[1] * kDegToRad};
    state.legStart = {numbers[2] * kDegToRad, numbers[3] * kDegToRad};
    state.desiredTrack = numbers[4];
    state.obsCourse = numbers[5];
    state.pathTargetAltFt = static_cast<std::int32_t>(numbers[6]);
    state.pathAngle = numbers[7] * kDegToRad;
    if (state.pathTargetAltFt != kNoAltitudeFt) {
        state.pathAltFt = state.pathTargetAltFt;
        state.pathEnd = state.activeWaypoint;
    }
    return state;
}

bool isSensible(const std::array<double, kNumbers>& numbers) {
    constexpr double kLargestAltitude = 2147483648.0;
    const auto isWithin = [&](std::size_t index, double most) {
        return numbers[index] >= -most && numbers[index] <= most;
    };
    return isWithin(0, 90) && isWithin(1, 180) && isWithin(2, 90) && isWithin(3, 180) &&
           isWithin(4, 360) && (isWithin(5, 360) || numbers[5] == kNoAngle) &&
           isWithin(6, kLargestAltitude) && numbers[6] < kLargestAltitude && isWithin(7, 90);
}

std::string directText(const ActiveNavigation& navigation) {
    // What a simulator has flown is not gone on with.
    if (!navigation.directLeg() || navigation.simulated())
        return {};
    const NavigationState state = navigation.state();
    const std::string_view between(&kBetween, 1);
    std::string text = escaped(state.activeKey, between) + kBetween;
    text += escaped(state.activeName, between);
    for (const double number : numbersOf(state))
        text += kBetween + formatFixed(number, kDecimals);
    return text;
}

std::string takeField(std::string_view& text) {
    const std::size_t end = std::min(text.find(kBetween), text.size());
    std::string field = unescaped(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

/// As it stands where the system cannot tell what it is relative to.
std::filesystem::path absolutePath(const std::filesystem::path& path) {
    std::error_code unknown;
    std::filesystem::path absolute = std::filesystem::absolute(path, unknown);
    return unknown ? path : absolute;
}

}  // namespace

FlightMemory::Resumed FlightMemory::begin(const std::filesystem::path& unsaved, bool wanted) {
    Resumed resumed;
    const std::filesystem::path file =
        pathOf(unescaped(profile_.getString(kOptionsSection, kPlanKey, "")));
    const std::string direct = profile_.getString(kOptionsSection, kDirectKey, "");
    ActivePlan& plan = flight_.plan();
    plan.keepUnsavedIn(unsaved);
    if (const auto error = plan.recover(file, wanted)) {
        resumed.plan = resumed.unsaved = error->empty();
        resumed.error = *error;
    }
    if (wanted && !resumed.plan && !file.empty())
        resumePlan(resumed, file);
    if (resumed.plan)
        plan.recallLine(unescaped(profile_.getString(kOptionsSection, kRouteKey, "")));
    resumed.direct = wanted && resumeDirect(direct);
    keeps_ = true;
    return resumed;
}

void FlightMemory::resumePlan(Resumed& resumed, const std::filesystem::path& file) {
    const std::string error = flight_.plan().open(file);
    resumed.plan = error.empty();
    if (!resumed.plan)
        resumed.error = textOf(file.filename()) + ":\n" + error;
}

bool FlightMemory::resumeDirect(std::string_view text) {
    if (text.empty())
        return false;
    const std::string key = takeField(text);
    const std::string name = takeField(text);
    std::array<double, kNumbers> numbers{};
    for (double& number : numbers) {
        const std::string field = takeField(text);
        std::string_view rest = field;
        const auto value = scanDouble(rest);
        if (!value)
            return false;
        number = *value;
    }
    if (!isSensible(numbers))
        return false;
    ActiveNavigation::Flown flown{.state = stateOf(numbers), .direct = true, .record = nullptr};
    flown.state.activeName = name;
    const GeoPoint there = flown.state.activeWaypoint;
    const DatabaseRecord* const found = key.empty() ? nullptr : database_.Find(key, there);
    if (found != nullptr && DistanceNm(found->position, there) < kSamePlaceNm) {
        flown.record = found->Clone();
        flown.state.activeKey = key;
    }
    flight_.navigation().flyAgain(flown);
    return true;
}

void FlightMemory::keep() {
    if (!keeps_)
        return;
    const std::filesystem::path& file = flight_.plan().file();
    if (file != keptFile_) {
        keptFile_ = file;
        const std::string path = file.empty() ? std::string() : textOf(absolutePath(file));
        profile_.setString(kOptionsSection, kPlanKey, escaped(path), true);
    } else if (file.empty()) {
        profile_.setString(kOptionsSection, kPlanKey, "", true);
    }
    if (std::exchange(keptRevision_, flight_.plan().revision()) != keptRevision_)
        profile_.setString(kOptionsSection, kRouteKey, escaped(flight_.plan().typedLine()), true);
    profile_.setString(kOptionsSection, kDirectKey, directText(flight_.navigation()), true);
}

void FlightMemory::forget() {
    keeps_ = false;
    keptFile_.clear();
    keptRevision_.reset();
    profile_.setString(kOptionsSection, kRouteKey, "", true);
    profile_.setString(kOptionsSection, kPlanKey, "", true);
    profile_.setString(kOptionsSection, kDirectKey, "", true);
}

}  // namespace korvel
