#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "navdb/file/DatabaseTables.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// The records from the user's own files. Owns them; each stands under its key and in the list of
/// its whole degree of longitude.
class UserRecordStore {
 public:
    using Bucket = std::vector<const DatabaseRecord*>;  ///< in ascending order of latitude

    /// False, and the record is gone, when its key is already there.
    bool add(std::unique_ptr<DatabaseRecord> record);
    void remove(std::string_view key);
    void clear();

    /// Null when there is none.
    [[nodiscard]] const DatabaseRecord* find(std::string_view key) const;
    [[nodiscard]] const Bucket& bucket(int cell) const {
        return buckets_[static_cast<std::size_t>(cell)];
    }
    /// All keys in ascending order.
    [[nodiscard]] std::vector<std::string> keys() const;

 private:
    std::map<std::string, std::unique_ptr<const DatabaseRecord>, std::less<>> records_;
    std::array<Bucket, kCellCount> buckets_;
};

/// The cell of a longitude in radians.
int cellOfRadians(double lon);

}  // namespace korvel
