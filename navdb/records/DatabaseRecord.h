#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "geo/GeoPoint.h"
#include "navdb/records/FixedText.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

inline constexpr std::size_t kMaxIdentLength = 11;
inline constexpr std::size_t kMaxPlaceNameLength = 20;  ///< of airports and navaids
using Ident = FixedText<kMaxIdentLength>;
using PlaceName = FixedText<kMaxPlaceNameLength>;

/// Identifies a row of an open database file.
struct RowMatch {
    int file = 0;           ///< number of the file in load order, from 0
    std::uint32_t row = 0;  ///< byte offset of the row in its file

    // The check takes the comparison that the compiler writes for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const RowMatch&, const RowMatch&) = default;
};

/// Where a record came from.
struct RecordOrigin {
    static constexpr int kNoFile = -1;

    /// Number and row for records from a database file; file is kNoFile for user records and for
    /// those that the program made.
    RowMatch match{.file = kNoFile, .row = 0};
    std::shared_ptr<const std::string> fileName;  ///< bare name, or null
};

/// How navaids and fixes are used: the high four bits of their type.
enum Usage : std::uint8_t {
    kUsageMarked = 0x01,  ///< a fix that the pilot has marked; never in a file
    kUsageTerminal = 0x10,
    kUsageLow = 0x20,
    kUsageHigh = 0x40,
    kUsageBoth = 0x60,
    kUsageVisual = 0x80,  ///< visual reporting point
};

/// A place that the navigator knows by name. Records are values: whoever asked for one owns it.
class DatabaseRecord {
 public:
    virtual ~DatabaseRecord() = default;

    /// A deep copy of the same class.
    [[nodiscard]] virtual std::unique_ptr<DatabaseRecord> Clone() const = 0;
    [[nodiscard]] virtual KindMask GetKind() const = 0;
    /// A line for the pilot: a navaid's frequency, an airport's description; may be empty.
    [[nodiscard]] virtual std::string GetInfoText() const = 0;
    /// Airports and navaids keep the first 20 characters.
    virtual void SetName(std::string_view name) = 0;
    [[nodiscard]] virtual std::string_view GetName() const = 0;

    std::string key;       ///< RecordKey
    GeoPoint position;     ///< radians
    bool expired = false;  ///< the data of its file are out of date
    /// The date of its file has passed, whatever the region's rule makes of that. The pilot is told
    /// of it wherever the place is shown.
    bool pastDate = false;
    Ident ident;
    RecordOrigin origin;

 protected:
    DatabaseRecord() = default;
    DatabaseRecord(const DatabaseRecord&) = default;
    DatabaseRecord(DatabaseRecord&&) = default;
    DatabaseRecord& operator=(const DatabaseRecord&) = default;
    DatabaseRecord& operator=(DatabaseRecord&&) = default;
};

}  // namespace korvel
