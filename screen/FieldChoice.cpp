#include "screen/FieldChoice.h"

#include <algorithm>

#include "config/ProfileFile.h"

namespace korvel {

FieldChoice::FieldChoice(ProfileFile& profile)
    : profile_(profile),
      fields_(navFieldsFromText(profile.getString(kOptionsSection, kNavFieldsKey,
                                                  navFieldsToText(defaultNavFields())))) {}

bool FieldChoice::contains(NavFieldId field) const {
    return std::ranges::find(fields_, field) != fields_.end();
}

std::size_t FieldChoice::placeOf(NavFieldId field) const {
    return static_cast<std::size_t>(std::ranges::find(fields_, field) - fields_.begin());
}

void FieldChoice::put(std::size_t place, NavFieldId field) {
    if (const auto other = std::ranges::find(fields_, field); other != fields_.end())
        *other = fields_.at(place);
    fields_.at(place) = field;
    store();
}

void FieldChoice::store() const {
    profile_.setString(kOptionsSection, kNavFieldsKey, navFieldsToText(fields_), true);
}

}  // namespace korvel
