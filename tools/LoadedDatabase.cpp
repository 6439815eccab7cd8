#include "tools/LoadedDatabase.h"

namespace korvel {

LoadedDatabase::LoadedDatabase(const Invocation& call) : clock(call.clock()) {
    loader.load(call.dataFolders());
}

std::unique_ptr<DatabaseRecord> LoadedDatabase::withDetails(const DatabaseRecord& record) const {
    auto copy = record.Clone();
    if (auto* airport = dynamic_cast<AirportRecord*>(copy.get()))
        database.loadDetails(*airport);
    return copy;
}

}  // namespace korvel
