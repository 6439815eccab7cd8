#pragma once

#include <memory>

#include "navdb/DatabaseLoader.h"
#include "navdb/NavDatabase.h"
#include "platform/VirtualClock.h"
#include "tools/Invocation.h"

namespace korvel {

/// Everything that the data folder of a call holds, loaded and merged as the program does it; the
/// report stays in memory.
struct LoadedDatabase {
    explicit LoadedDatabase(const Invocation& call);

    /// A copy; an airport's has its runways and frequencies.
    [[nodiscard]] std::unique_ptr<DatabaseRecord> withDetails(const DatabaseRecord& record) const;

    VirtualClock clock;
    NavDatabase database{clock};
    LoadReport report;
    DatabaseLoader loader{database, report};
};

}  // namespace korvel
