#pragma once

namespace korvel {

/// Whether standard error goes to somebody's screen, and not to a file or another program.
bool errorOutputIsTerminal();

/// Has what the program writes to its standard streams arrive byte for byte, and be shown as UTF-8:
/// to be called before anything is written. Windows would add a carriage return to every line.
void writePlainUtf8();

}  // namespace korvel
