#pragma once

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// A VOR or an NDB: one shape, two kinds.
class NavaidRecord : public DatabaseRecord {
 public:
    void SetName(std::string_view name) override { name_.assign(name); }
    [[nodiscard]] std::string_view GetName() const override { return name_.view(); }

    std::uint8_t usage = 0;  ///< Usage
    float frequency = 0.0F;  ///< MHz of a VOR, kHz of an NDB; 0 for none

 private:
    PlaceName name_;
};

/// VOR, VOR/DME, VORTAC.
class VorRecord final : public NavaidRecord {
 public:
    [[nodiscard]] std::unique_ptr<DatabaseRecord> Clone() const override;
    [[nodiscard]] KindMask GetKind() const override { return kVorKind; }
    /// The frequency with one to four decimals ("113.9", "115.0"); empty when there is none.
    [[nodiscard]] std::string GetInfoText() const override;
};

/// NDB, NDB/DME.
class NdbRecord final : public NavaidRecord {
 public:
    [[nodiscard]] std::unique_ptr<DatabaseRecord> Clone() const override;
    [[nodiscard]] KindMask GetKind() const override { return kNdbKind; }
    /// The frequency with no to four decimals ("375", "415.5"); empty when there is none.
    [[nodiscard]] std::string GetInfoText() const override;
};

}  // namespace korvel
