#include "navdb/user/UserRecordStore.h"

#include <algorithm>
#include <utility>

#include "geo/Geodesy.h"

namespace korvel {

int cellOfRadians(double lon) { return westernCell(lon * kRadToDeg); }

bool UserRecordStore::add(std::unique_ptr<DatabaseRecord> record) {
    const auto [place, added] = records_.try_emplace(record->key, std::move(record));
    if (added) {
        const DatabaseRecord* const stored = place->second.get();
        Bucket& bucket = buckets_[static_cast<std::size_t>(cellOfRadians(stored->position.lon))];
        bucket.insert(std::upper_bound(bucket.begin(), bucket.end(), stored,
                                       [](const DatabaseRecord* a, const DatabaseRecord* b) {
                                           return a->position.lat < b->position.lat;
                                       }),
                      stored);
    }
    return added;
}

void UserRecordStore::remove(std::string_view key) {
    const auto found = records_.find(key);
    if (found != records_.end()) {
        const DatabaseRecord* const stored = found->second.get();
        std::erase(buckets_[static_cast<std::size_t>(cellOfRadians(stored->position.lon))], stored);
        records_.erase(found);
    }
}

void UserRecordStore::clear() {
    records_.clear();
    buckets_.fill({});
}

const DatabaseRecord* UserRecordStore::find(std::string_view key) const {
    const auto found = records_.find(key);
    return found == records_.end() ? nullptr : found->second.get();
}

std::vector<std::string> UserRecordStore::keys() const {
    std::vector<std::string> keys;
    keys.reserve(records_.size());
    for (const auto& entry : records_)
        keys.push_back(entry.first);
    return keys;
}

}  // namespace korvel
