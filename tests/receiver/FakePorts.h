#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "base/Guarded.h"
#include "platform/SerialDevice.h"

namespace korvel {

/// Polls until the condition holds; false when it does not come true in far more time than it can
/// take.
template <class Condition>
bool eventually(const Condition& holds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// The serial ports of a machine that is not there. Every port exists unless it is refused. Must
/// outlive the ports that are opened through it.
class FakePorts {
 public:
    SerialDeviceOpener opener() {
        return [this](std::string_view path, SystemError& error) -> std::unique_ptr<SerialDevice> {
            const auto state = state_.lock();
            const std::string name(path.substr(path.rfind('\\') + 1));
            state->attempts.push_back(name);
            const auto refusal = state->refusals.find(name);
            error = refusal == state->refusals.end() ? kNoError : refusal->second;
            return error == kNoError ? std::make_unique<Device>(*this, name) : nullptr;
        };
    }

    void refuse(const std::string& name, SystemError error) { state_.lock()->refusals[name] = error; }
    /// Arrives at the port "COM1:", or at whichever is open.
    void send(std::string_view bytes, const std::string& name = {}) { state_.lock()->arriving[name] += bytes; }
    /// What reads answer from now on; for a device that is gone.
    void fail(SystemError error) { state_.lock()->readError = error; }

    /// Names that somebody tried to open, and "name speed" for every line that was set up.
    std::vector<std::string> attempts() const { return state_.lock()->attempts; }
    std::vector<std::string> openings() const { return state_.lock()->openings; }

 private:
    struct State {
        std::map<std::string, SystemError> refusals;
        std::vector<std::string> attempts;
        std::vector<std::string> openings;
        std::map<std::string, std::string> arriving;
        SystemError readError = kNoError;
    };

    class Device final : public SerialDevice {
     public:
        Device(FakePorts& ports, std::string name) : ports_(ports), name_(std::move(name)) {}

        SystemError readLineSettings(LineSettings&) override { return kNoError; }
        SystemError applyLineSettings(const LineSettings& line) override {
            const auto state = ports_.state_.lock();
            state->openings.push_back(name_ + " " + std::to_string(line.baud));
            return kNoError;
        }
        SystemError setTimeouts(const SerialTimeouts&) override { return kNoError; }
        Transfer read(std::span<char> into) override {
            const auto state = ports_.state_.lock();
            std::string& bytes = state->arriving[state->arriving[name_].empty() ? std::string() : name_];
            Transfer transfer{state->readError, bytes.copy(into.data(), into.size())};
            bytes.erase(0, transfer.count);
            return transfer;
        }
        Transfer write(std::string_view bytes) override { return {kNoError, bytes.size()}; }
        void clearError() override {}
        void abort() override {}

     private:
        FakePorts& ports_;
        const std::string name_;
    };

    Guarded<State> state_;
};

}  // namespace korvel
