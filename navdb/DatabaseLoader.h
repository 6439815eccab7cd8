#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "navdb/LoadReport.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/FixRecord.h"
#include "navdb/user/UserRecordStore.h"

namespace korvel {

/// The database that the program brings with it.
inline constexpr std::string_view kBundledDatabaseName = "world.ng2";

/// Gathers the places: opens the database files of a folder, reads the user's files and settles who
/// wins where both name the same place. A user airport replaces the database's; a user navaid or
/// fix gives way to it. Owns the user's records for the whole run.
class DatabaseLoader {
 public:
    /// What is being loaded ("Loading NAME") and how far it has come in per cent. False breaks the
    /// loading off.
    using Progress = std::function<bool(std::string_view text, int percent)>;

    struct OpenedFile {
        std::string name;   ///< bare
        std::string error;  ///< empty when the file is open
    };

    /// Both must outlive the loader; when it goes, the database loses the user's records.
    DatabaseLoader(NavDatabase& database, LoadReport& report);
    ~DatabaseLoader();
    DatabaseLoader(const DatabaseLoader&) = delete;
    DatabaseLoader& operator=(const DatabaseLoader&) = delete;

    /// Starts the report anew and replaces all that was loaded before: ".ng2" files, then
    /// "*.UDB.TXT", then "*.NDB.TXT", each folder by folder and in ascending order of their names.
    /// A ".ng2" file replaces those of its name, in capitals or not, in later folders: one of them
    /// stands in only when it cannot be opened. Towns come from the first "*.twn" that can be.
    /// Empty paths and folders that are not there hold nothing. False when it was broken off, and
    /// then nothing is loaded.
    bool load(std::span<const std::filesystem::path> folders, const Progress& progress = {});
    bool load(const std::filesystem::path& folder, const Progress& progress = {}) {
        return load(std::span(&folder, 1), progress);
    }

    /// Puts what another loader has loaded into another database in the place of all that was
    /// loaded here, at once. The marked fixes stay.
    void takeOver(DatabaseLoader& loaded);

    /// Of two records with the same key the first one stays. `fromSecondSource` also refuses an
    /// airport that is there with or without the region letter in front.
    void AddUserRecord(std::unique_ptr<DatabaseRecord> record, bool fromSecondSource);

    /// Settles user records against the open database files.
    void MergeWithDatabase();

    /// The fixes that the pilot has marked, in place of those before. They are places like the
    /// user's records, and stay through every load.
    void setMarkedFixes(std::vector<FixRecord> fixes);

    [[nodiscard]] const UserRecordStore& userRecords() const { return records_; }
    [[nodiscard]] const std::vector<OpenedFile>& openedFiles() const { return openedFiles_; }

 private:
    /// Files of one name, in the order of the folders in which they lie.
    using SameName = std::vector<std::filesystem::path>;

    void clear();
    bool openDatabases(std::span<const SameName> databases, const Progress& progress);
    bool openDatabase(const std::filesystem::path& path, const Progress& progress);
    void openTowns(std::span<const std::filesystem::path> paths);
    bool loadUserFiles(std::span<const std::filesystem::path> paths, bool fromSecondSource,
                       const Progress& progress);
    void reportFailure(const std::filesystem::path& path, std::string_view message);
    void excludeReplacedAirports();
    void addMarkedFixes();
    void dropIfInDatabase(const DatabaseRecord& record);

    NavDatabase& database_;
    LoadReport& report_;
    UserRecordStore records_;
    std::vector<std::string> userAirportKeys_;  ///< of the first source; emptied by the merge
    std::vector<OpenedFile> openedFiles_;
    std::vector<FixRecord> markedFixes_;
};

}  // namespace korvel
