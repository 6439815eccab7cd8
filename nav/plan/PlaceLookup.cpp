#include "nav/plan/PlaceLookup.h"

#include "nav/plan/GeneratedFixes.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

std::shared_ptr<const DatabaseRecord> PlaceLookup::peek(std::string_view key) const {
    if (auto fix = fixes_->find(key))
        return fix;
    return peekDatabase(key);
}

std::shared_ptr<const DatabaseRecord> PlaceLookup::peekDatabase(std::string_view key) const {
    const DatabaseRecord* const found = database_->Find(key, near_);
    // A place without a position cannot be flown to.
    return found != nullptr && IsValid(found->position) ? found->Clone() : nullptr;
}

std::shared_ptr<const DatabaseRecord> PlaceLookup::peekPrefixed(std::string_view ident) const {
    if (icaoPrefix_.empty() || hasKindPrefix(ident))
        return nullptr;
    return peekDatabase(makeRecordKey(kAirportKind, icaoPrefix_ + std::string(ident)));
}

std::shared_ptr<const DatabaseRecord> PlaceLookup::next(std::string_view key) {
    auto found = peek(key);
    if (found)
        near_ = found->position;
    return found;
}

}  // namespace korvel
