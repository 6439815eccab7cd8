#pragma once

namespace korvel {

/// Whether standard error goes to somebody's screen, and not to a file or another program.
bool errorOutputIsTerminal();

}  // namespace korvel
