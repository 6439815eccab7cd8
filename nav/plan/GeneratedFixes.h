#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "navdb/records/FixRecord.h"

namespace korvel {

/// The fixes that the program itself makes: where airways cross, and the user's waypoints from
/// plan files. Owned by the document; user-interface thread only.
class GeneratedFixes {
 public:
    using Fix = std::shared_ptr<const FixRecord>;

    /// The fix at this position (SamePoint) whatever its name, else a new one: "f.NAME", or
    /// without a name "f.F-1", "f.F-2" and so on. A name that stands elsewhere moves here; plans
    /// that hold its old record keep that. `shown` is what the pilot reads of a new one, the name
    /// if it is empty.
    Fix FindOrCreateFix(GeoPoint position, std::optional<std::string_view> name = std::nullopt,
                        std::string_view shown = {});

    /// By key; null when there is none.
    [[nodiscard]] Fix find(std::string_view key) const;

 private:
    std::map<std::string, Fix, std::less<>> fixes_;
    int counter_ = 0;
};

}  // namespace korvel
