#pragma once

#include "config/Text.h"

namespace korvel {

class ProfileFile;

/// Hints that help once: the profile keeps which of them the pilot has had.
class Hints {
 public:
    /// The profile must outlive this.
    explicit Hints(ProfileFile& profile) : profile_(profile) {}

    /// Whether it is the first time for this one, which it then no longer is. A text that is no
    /// hint never is.
    bool take(Text hint);

 private:
    ProfileFile& profile_;
};

}  // namespace korvel
