#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Guarded.h"
#include "geo/Geoid.h"
#include "receiver/gdl90/Gdl90Frames.h"
#include "receiver/gdl90/Gdl90Message.h"
#include "receiver/gdl90/TrafficTable.h"
#include "receiver/network/NetworkSource.h"

namespace korvel {

/// Makes a receiver's sentences of GDL 90: each report on the own aircraft becomes RMC, GGA and
/// GSA. The height is the geometric one, above mean sea level, never the pressure altitude; without
/// it the fix is one in the plane. No number of satellites is made up.
class Gdl90Receiver final : public SentenceMaker {
 public:
    /// An attitude and when it came.
    struct Attitude {
        Gdl90Attitude values;
        std::int64_t arrivedMs = 0;
    };

    /// Without a table of the geoid heights above the ellipsoid are of no use. Before it runs.
    void setGeoid(std::optional<Geoid> geoid) { geoid_ = std::move(geoid); }

    void take(std::string_view bytes, std::int64_t arrivedMs, SentenceListener& listener) override;
    /// One message of those that take() finds.
    void takeMessage(const Gdl90Message& message, std::int64_t arrivedMs,
                     SentenceListener& listener);

    /// The newest; any thread.
    std::optional<Attitude> attitude() const { return *attitude_.lock(); }
    /// All aircraft that it tells of; any thread.
    TrafficTable traffic() const { return *traffic_.lock(); }
    /// Another receiver is listened to: what this one has said is of no use. While none is.
    void forget();

 private:
    void report(const Gdl90Target& own, std::int64_t arrivedMs, SentenceListener& listener);
    std::optional<double> heightM(GeoPoint place) const;

    /// What the device has said about its reports.
    struct Heard {
        Gdl90Frames frames;
        bool gpsValid = true;  ///< until a heartbeat says otherwise: some devices send none
        bool heightIsMsl = false;
        std::optional<int> heightFt;
        int reportsSinceHeight = 0;
    };

    std::optional<Geoid> geoid_;
    Heard heard_;
    Guarded<std::optional<Attitude>> attitude_;
    Guarded<TrafficTable> traffic_;
};

}  // namespace korvel
