#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "platform/SharedLibrary.h"
#include "plugins/attitude/AttitudePlugin.h"

namespace korvel {

/// The attitude plug-in: the first library, by its name, of the folder of plug-ins. It is called on
/// the user-interface thread alone. Sentences come from the ports' threads and wait for the next
/// drawing, under a lock that is held neither while the plug-in is at work nor with another one.
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
    void setListening(bool on);
    /// "$RPY,..."; any thread. When nobody draws for long the oldest ones make room.
    void processMessage(std::string_view sentence);

    /// Gives the plug-in the sentences that wait and draws into the picture, whose size, pixels and
    /// colours the caller has set. False: what is drawn is too old to be believed.
    bool draw(KorvelPicture picture, std::int64_t nowMs);

 private:
    struct Inbox {
        bool open = false;
        std::vector<std::string> sentences;  ///< oldest first
    };

    std::string load(const std::filesystem::path& path);

    SharedLibrary library_;
    std::string error_;
    Guarded<Inbox> inbox_;
    decltype(&Draw) draw_ = nullptr;
    decltype(&ProcessMessage) processMessage_ = nullptr;
    decltype(&CheckAlive) checkAlive_ = nullptr;
};

}  // namespace korvel
