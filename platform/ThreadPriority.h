#pragma once

namespace korvel {

/// Has the calling thread stand back behind all others, for work that nobody waits for.
void lowerThreadPriority();

}  // namespace korvel
