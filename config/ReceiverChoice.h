#pragma once

#include <string>

namespace korvel {

class ProfileFile;

/// How the receiver is listened to. Stored beside the list of settings, which is complete.
struct ReceiverChoice {
    /// Every satellite system's sentences are understood ("Talkers"), not those of GPS alone.
    bool allTalkers = false;
    /// A receiver in the network ("GpsSource", see SourceAddress); empty for the serial port.
    std::string source{};

    friend bool operator==(const ReceiverChoice&, const ReceiverChoice&) = default;
};

/// What the profile says. All talkers are on in a new one; one that has served before without the
/// entry stays as it was. To be called before the settings enter their defaults, by which a profile
/// is told from a new one. Saves nothing.
ReceiverChoice loadReceiverChoice(ProfileFile& profile);

/// Reaches the file with the profile's next save.
void storeReceiverChoice(ProfileFile& profile, const ReceiverChoice& choice);

}  // namespace korvel
