#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "pages/NavField.h"

namespace korvel {

class ProfileFile;

/// The navigation fields that the pilot has chosen, the most important first, as the profile keeps
/// them.
class FieldChoice {
 public:
    /// The profile must outlive this.
    explicit FieldChoice(ProfileFile& profile);

    std::span<const NavFieldId> fields() const { return fields_; }
    bool contains(NavFieldId field) const;
    /// Where one of them stands in fields().
    std::size_t placeOf(NavFieldId field) const;
    /// Puts the field there; when it already stands elsewhere the two change places.
    void put(std::size_t place, NavFieldId field);
    /// Reaches the file with the profile's next save.
    void store() const;

 private:
    ProfileFile& profile_;
    std::vector<NavFieldId> fields_;
};

}  // namespace korvel
