#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said about a port that does not open and about a receiver that is not understood
/// yet. Whoever explains one of them to the pilot recognises it by these.
struct ReceiverTexts {
    Text invalidPort{62100, "Invalid Port"};
    Text portOpen{62101, "Port already open!"};
    Text portMissing{62102, "Used or Non-existent Port!"};
    Text portUsed{62103, "Port Being Used"};
    Text noActivity{62104, "No Gps Rcvr Activity"};
    Text waitingForNmea{62105, "Waiting for NMEA Data"};
    Text waitingForCourse{62106, "Waiting for NMEA gprmc or gpvtg"};
    Text waitingForAltitude{62107, "Waiting for NMEA gpgga"};
    Text talksOther{62137, "this receiver talks %s"};  ///< %s: GN
    Text locatingSatellites{62108, "Locating Satellites"};
    Text portOpenFailed{62109, "Port Open Failed=%d"};  ///< %d: the system's number of the error
    Text badSetting{62110, "Bad setting!"};
    Text unsupportedBaud{62111, "Unsupported baud"};
    Text nothingToReplay{62112, "Nothing to replay"};
    Text replayOver{62113, "Replay ended"};
    Text modulePortNotSet{62120, "The module's port is not set"};
    Text moduleTrouble{62121, "Attitude module, %s: %s"};  ///< %s: port and speed, %s: why
    Text lookingUp{62420, "Looking for the device's name"};
    Text noSuchHost{62421, "Nothing bears this name in the network"};
    Text connecting{62422, "Connecting"};
    Text noConnection{62423, "No connection"};
    Text cannotListen{62424, "This network port cannot be listened at"};
    Text noThread{62114, "The system has no thread to give"};
};

inline constexpr ReceiverTexts kReceiverTexts{};

}  // namespace korvel
