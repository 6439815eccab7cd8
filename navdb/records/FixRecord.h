#pragma once

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// A named point: an intersection, a waypoint, a visual reporting point.
class FixRecord final : public DatabaseRecord {
 public:
    [[nodiscard]] std::unique_ptr<DatabaseRecord> Clone() const override {
        return std::make_unique<FixRecord>(*this);
    }
    [[nodiscard]] KindMask GetKind() const override { return kFixKind; }
    [[nodiscard]] std::string GetInfoText() const override { return {}; }
    /// A name of any length.
    void SetName(std::string_view name) override { name_ = name; }
    /// The identifier when the fix has no name.
    [[nodiscard]] std::string_view GetName() const override {
        return name_.empty() ? ident.view() : std::string_view(name_);
    }

    std::uint8_t usage = 0;  ///< Usage

 private:
    std::string name_;
};

}  // namespace korvel
