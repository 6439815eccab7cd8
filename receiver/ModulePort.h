#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/ToldOnce.h"
#include "receiver/PortSettings.h"
#include "receiver/SerialSource.h"

namespace korvel {

/// The attitude module's own port: kept open while one is wanted, and opened again when the module
/// comes back. What it says of anything but the attitude is left alone. Main thread only, but for
/// the sentences.
class ModulePort : private SentenceListener {
 public:
    /// `clock` must outlive it. `onAttitude` is given "$RPY,..." on the port's thread.
    ModulePort(SerialDeviceOpener opener, const Clock& clock,
               std::function<void(std::string_view sentence)> onAttitude);
    ModulePort(const ModulePort&) = delete;
    ModulePort& operator=(const ModulePort&) = delete;
    ~ModulePort() override { port_.stop(); }

    /// Each tick: opens the port if it is not open, closes it when none or another one is wanted.
    void keepOpen(const std::optional<PortSettings>& wanted);

    /// Why it is not open; empty while it is, or when none is wanted.
    [[nodiscard]] const std::string& failure() const { return failure_; }
    /// Whether bytes arrived about the last tick.
    [[nodiscard]] bool isHeard() const { return isHeard_; }

    /// That it cannot be opened, for the pilot; told once for as long as it lasts.
    [[nodiscard]] std::string takeTrouble() { return trouble_.take(); }

    /// See SerialSource::setTrace().
    void setTrace(SerialPort::TraceHook hook) { port_.setTrace(std::move(hook)); }

 private:
    void onLine(std::string_view line, std::int64_t arrivedMs) override;

    std::function<void(std::string_view sentence)> onAttitude_;
    SerialSource port_;
    std::string failure_;
    bool isHeard_ = false;
    ToldOnce trouble_;
};

}  // namespace korvel
