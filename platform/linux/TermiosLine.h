#pragma once

#include "platform/SerialDevice.h"

namespace korvel {

/// How the terminal line behind `fd` runs. Returns the system's errno, 0 for success.
///
/// A line that is still set up for a person at a terminal says nothing about XON/XOFF; it counts as
/// off there, or noise at a wrong speed could stop the output for ever.
int readTermiosLine(int fd, LineSettings& settings);

/// Sets the line up for bytes as they are, and reads back whether it runs at that speed. EINVAL for
/// what this system or device cannot do.
int applyTermiosLine(int fd, const LineSettings& settings);

}  // namespace korvel
