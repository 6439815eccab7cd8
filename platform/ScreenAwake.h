#pragma once

namespace korvel {

/// Keeps the screen on, or lets it sleep as usual again. False where the system itself has no way
/// to do it, and a desktop must be asked.
bool keepScreenAwake(bool on);

}  // namespace korvel
