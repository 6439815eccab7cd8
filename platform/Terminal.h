#pragma once

namespace korvel {

/// Whether standard error goes to somebody's screen, and not to a file or another program.
bool errorOutputIsTerminal();

/// Has what the program writes to its standard streams arrive byte for byte, and be shown as UTF-8:
/// to be called before anything is written. Windows would add a carriage return to every line.
void writePlainUtf8();

/// A program with a window has no standard streams on Windows unless it is given some: has it write
/// to the terminal that it was started from, if there is one. Nothing elsewhere.
void joinTerminal();

}  // namespace korvel
