#include "navdb/DatabaseLoader.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Ascii.h"
#include "config/texts/DatabaseTexts.h"
#include "navdb/user/UserDatabaseReader.h"
#include "platform/Folders.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

bool isAirportKey(std::string_view key) { return key.starts_with("a."); }

std::string notUsed(std::string_view key, std::string_view where) {
    return formatText(kDatabaseTexts.notUsed, {key, where}) + "\r\n";
}

std::vector<std::filesystem::path> filesIn(std::span<const std::filesystem::path> folders,
                                           std::string_view pattern) {
    std::vector<std::filesystem::path> paths;
    for (const auto& folder : folders)
        if (!folder.empty())
            std::ranges::move(findFiles(folder, pattern), std::back_inserter(paths));
    return paths;
}

std::vector<std::vector<std::filesystem::path>> databasesIn(
    std::span<const std::filesystem::path> folders) {
    std::vector<std::vector<std::filesystem::path>> databases;
    const auto name = [](const std::filesystem::path& path) {
        return inCapitals(textOf(path.filename()));
    };
    for (const auto& path : filesIn(folders, "*.ng2")) {
        const auto same = std::ranges::find_if(databases, [&](const auto& paths) {
            return name(paths.front()) == name(path) &&
                   paths.back().parent_path() != path.parent_path();
        });
        if (same == databases.end())
            databases.push_back({path});
        else
            same->push_back(path);
    }
    return databases;
}

}  // namespace

DatabaseLoader::DatabaseLoader(NavDatabase& database, LoadReport& report)
    : database_(database), report_(report) {}

DatabaseLoader::~DatabaseLoader() { database_.setUserRecords(nullptr); }

void DatabaseLoader::clear() {
    database_.clear();
    records_.clear();
    userAirportKeys_.clear();
    openedFiles_.clear();
}

bool DatabaseLoader::load(std::span<const std::filesystem::path> folders,
                          const Progress& progress) {
    report_.restart();
    const LoadReport::Gathering gathering(report_);
    report_.AppendLoadReport(std::string(text(kDatabaseTexts.loadStatus)) + "\r\n\r\n");
    clear();
    if (!openDatabases(databasesIn(folders), progress) ||
        !loadUserFiles(filesIn(folders, "*.UDB.TXT"), false, progress) ||
        !loadUserFiles(filesIn(folders, "*.NDB.TXT"), true, progress)) {
        clear();
        report_.AppendLoadReport(std::string(text(kDatabaseTexts.aborting)) + "\r\n");
        return false;
    }
    openTowns(filesIn(folders, "*.twn"));
    MergeWithDatabase();
    addMarkedFixes();
    return true;
}

void DatabaseLoader::takeOver(DatabaseLoader& loaded) {
    database_.takeFilesFrom(loaded.database_);
    records_ = std::exchange(loaded.records_, {});
    openedFiles_ = std::exchange(loaded.openedFiles_, {});
    addMarkedFixes();
}

void DatabaseLoader::setMarkedFixes(std::vector<FixRecord> fixes) {
    for (const FixRecord& old : markedFixes_) {
        const auto* stored = dynamic_cast<const FixRecord*>(records_.find(old.key));
        if (stored != nullptr && stored->usage == kUsageMarked)
            records_.remove(old.key);
    }
    markedFixes_ = std::move(fixes);
    addMarkedFixes();
}

void DatabaseLoader::addMarkedFixes() {
    for (const FixRecord& fix : markedFixes_)
        records_.add(std::make_unique<FixRecord>(fix));
    database_.setUserRecords(&records_);
}

bool DatabaseLoader::openDatabases(std::span<const SameName> databases, const Progress& progress) {
    for (const SameName& paths : databases) {
        for (const auto& path : paths) {
            if (!openDatabase(path, progress))
                return false;
            if (openedFiles_.back().error.empty())
                break;
        }
    }
    return true;
}

bool DatabaseLoader::openDatabase(const std::filesystem::path& path, const Progress& progress) {
    const std::string name = textOf(path.filename());
    const std::string text = formatText(kDatabaseTexts.loading, {name});
    bool goesOn = true;
    const std::string error = database_.openFile(path, [&](int percent) {
        goesOn = !progress || progress(text, percent);
        return goesOn;
    });
    if (!goesOn)
        return false;
    if (!error.empty())
        reportFailure(path, error);
    openedFiles_.push_back({.name = name, .error = error});
    return true;
}

void DatabaseLoader::openTowns(std::span<const std::filesystem::path> paths) {
    for (const auto& path : paths) {
        const std::string error = database_.openTowns(path);
        if (error.empty())
            return;
        reportFailure(path, error);
    }
}

bool DatabaseLoader::loadUserFiles(std::span<const std::filesystem::path> paths,
                                   bool fromSecondSource, const Progress& progress) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::string doing = formatText(kDatabaseTexts.loading, {textOf(paths[i].filename())});
        bool goesOn = true;
        const auto tell = [&](double share) {
            const double done =
                (static_cast<double>(i) + share) / static_cast<double>(paths.size());
            goesOn = !progress || progress(doing, static_cast<int>(done * 100));
            return goesOn;
        };
        if (!tell(0))
            return false;
        UserDatabaseReader reader(report_, [&](std::unique_ptr<DatabaseRecord> record) {
            AddUserRecord(std::move(record), fromSecondSource);
        });
        reader.onProgress(tell);
        if (const std::string error = reader.LoadFile(paths[i]); !error.empty())
            reportFailure(paths[i], error);
        if (!goesOn)
            return false;
    }
    return true;
}

void DatabaseLoader::reportFailure(const std::filesystem::path& path, std::string_view message) {
    report_.AppendLoadReport(formatText(kDatabaseTexts.loading, {textOf(path)}) + "\r\n  " +
                             std::string(message) + "\r\n\r\n");
}

void DatabaseLoader::AddUserRecord(std::unique_ptr<DatabaseRecord> record, bool fromSecondSource) {
    const std::string key = record->key;
    const char region = database_.regionLetter();
    const bool standsUnderOtherKey =
        fromSecondSource && isAirportKey(key) && region != 0 &&
        records_.find(makeRecordKey(kAirportKind, otherSpelling(identOfKey(key), region))) !=
            nullptr;
    if (standsUnderOtherKey || !records_.add(std::move(record)))
        report_.AppendLoadReport(notUsed(key, fromSecondSource ? ".NDB or .UDB.TXT" : ".UDB.TXT"));
    else if (!fromSecondSource && isAirportKey(key))
        userAirportKeys_.push_back(key);
}

void DatabaseLoader::MergeWithDatabase() {
    database_.setUserRecords(nullptr);  // the files alone are asked
    excludeReplacedAirports();
    for (int cell = 0; cell < kCellCount; ++cell) {
        const UserRecordStore::Bucket bucket = records_.bucket(cell);
        for (const DatabaseRecord* const record : bucket)
            dropIfInDatabase(*record);
    }
    database_.setUserRecords(&records_);
}

void DatabaseLoader::excludeReplacedAirports() {
    for (const std::string& key : std::exchange(userAirportKeys_, {})) {
        const std::string_view ident = identOfKey(key);
        bool replaces = false;
        for (const auto& [index, table] : {std::pair{"AptKey", "_APT"}, {"Ap2Key", "_AP2"}}) {
            // Each row found is excluded at once, so that the next search finds a further one.
            while (database_.FindInIndex(ident, index, table, std::nullopt, 0)) {
                database_.exclude(*database_.lastMatch());
                replaces = true;
            }
        }
        if (replaces)
            report_.AppendLoadReport(formatText(kDatabaseTexts.airportReplaced, {ident}) + "\r\n");
    }
}

void DatabaseLoader::dropIfInDatabase(const DatabaseRecord& record) {
    const std::string key = record.key;
    const std::string_view ident = identOfKey(key);
    const char region = database_.regionLetter();
    bool isThere = database_.Find(key) != nullptr;
    if (!isThere && isAirportKey(key) && hasRegionLetter(ident, region))
        isThere = database_.Find(makeRecordKey(kAirportKind, ident.substr(1))) != nullptr;
    if (isThere) {
        records_.remove(key);
        report_.AppendLoadReport(notUsed(key, ".NG2"));
    }
}

}  // namespace korvel
