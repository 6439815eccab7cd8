#pragma once

namespace korvel {

/// For this process and those that it starts; no value removes the variable.
void setVariable(const char* name, const char* value);

/// Has the C library look at TZ again. False where the time zone is the whole system's.
bool rereadTimeZone();

/// Whether HOME says where the user's own folders are.
bool homeIsAVariable();

}  // namespace korvel
