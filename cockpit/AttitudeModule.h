#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include "platform/SharedLibrary.h"
#include "plugins/attitude/AttitudePlugin.h"

namespace korvel {

/// The attitude plug-in: the first library, by its name, of the folder of plug-ins. Sentences reach
/// it from the ports' threads, all else is asked on the user-interface thread; the plug-in itself
/// is called by one of them at a time, under one lock that nothing else is taken under.
class AttitudeModule {
 public:
    /// No plug-in.
    AttitudeModule() = default;
    /// An empty folder has none.
    explicit AttitudeModule(const std::filesystem::path& folder);

    [[nodiscard]] bool isLoaded() const { return draw_ != nullptr; }
    /// Why there is none: the system's text or what the library lacks; empty when no library was
    /// found, or all is well.
    [[nodiscard]] const std::string& error() const { return error_; }

    /// Whether its page is the current one and the module is in use: only then it is given
    /// sentences.
    void setListening(bool on) { listening_ = on; }
    /// "$RPY,..."; any thread.
    void processMessage(std::string_view sentence);

    /// Draws into the picture, whose size, pixels and colours the caller has set. False: what is
    /// drawn is too old to be believed.
    bool draw(KorvelPicture picture, std::int64_t nowMs);

 private:
    std::string load(const std::filesystem::path& path);

    SharedLibrary library_;
    std::string error_;
    std::mutex lock_;
    std::atomic<bool> listening_ = false;
    decltype(&Draw) draw_ = nullptr;
    decltype(&ProcessMessage) processMessage_ = nullptr;
    decltype(&CheckAlive) checkAlive_ = nullptr;
};

}  // namespace korvel
