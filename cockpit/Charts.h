#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cockpit/ChartLoading.h"
#include "navdb/DatabaseLoader.h"
#include "navdb/LoadReport.h"
#include "navdb/NavDatabase.h"

namespace korvel {

/// The databases in use: loads others beside them and swaps them in whole, and knows what the pilot
/// must be told of their age. Main thread only.
class Charts {
 public:
    /// `folder` is where the load report lies; empty: it is kept in memory. The clock must outlive
    /// the charts.
    Charts(const Clock& clock, const std::filesystem::path& folder);
    Charts(const Charts&) = delete;
    Charts& operator=(const Charts&) = delete;
    ~Charts() = default;

    /// The same object through every load. Places found in it are rows of the set in use and mean
    /// nothing behind the next swap; records and keys stay good.
    NavDatabase& database() { return database_; }
    [[nodiscard]] const NavDatabase& database() const { return database_; }
    [[nodiscard]] const UserRecordStore& userRecords() const { return loader_.userRecords(); }
    /// The files of the set in use, with those that could not be opened.
    [[nodiscard]] const std::vector<DatabaseLoader::OpenedFile>& openedFiles() const {
        return loader_.openedFiles();
    }
    /// Of the last loading, also of one that is under way or was broken off.
    [[nodiscard]] const LoadReport& report() const { return report_; }
    /// What the pilot must know about the charts' age at all times; empty for nothing, and
    /// while the first set is being loaded.
    [[nodiscard]] const std::string& notice() const { return notice_; }

    /// Places that the pilot has marked, in place of those before; they stay through every load.
    void setMarkedFixes(std::vector<FixRecord> fixes) { loader_.setMarkedFixes(std::move(fixes)); }

    /// Loads what lies in these folders in place of what is in use, and returns when it is there.
    void load(std::span<const std::filesystem::path> folders);
    /// The same beside what is in use, which stays until takeLoaded(). A loading that is under way
    /// is broken off.
    void startLoading(std::vector<std::filesystem::path> folders);
    /// What is in use stays. Does nothing when nothing is being loaded.
    void breakOff();
    /// Nothing while nothing is being loaded.
    [[nodiscard]] std::optional<ChartLoading::State> loading() const;
    /// Once per tick: brings what has been loaded into use. True when it did.
    bool takeLoaded();

 private:
    void updateNotice();

    const Clock& clock_;
    NavDatabase database_;
    LoadReport report_;
    DatabaseLoader loader_{database_, report_};
    std::unique_ptr<ChartLoading> loading_;  // after what it reports to
    std::string notice_;
};

}  // namespace korvel
