#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/DatabaseRecord.h"
#include "navdb/search/Place.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"

namespace korvel {

class DatabaseFile;
class UserRecordStore;
struct ExcludedPlace;
struct NamedPlace;
struct PlaceSources;

/// All places that the navigator knows: the rows of the open database files and, behind them as
/// if they were one more file, the user's own records. A place that several files hold is found
/// once, in the file of the latest cycle. Holds no places in memory; every call reads what it needs
/// from the files. User-interface thread only.
class NavDatabase {
 public:
    /// The clock decides which files are out of date; it and the disk must outlive the database.
    explicit NavDatabase(const Clock& clock, FileSystem& disk = systemFileSystem());
    ~NavDatabase();
    NavDatabase(const NavDatabase&) = delete;
    NavDatabase& operator=(const NavDatabase&) = delete;

    /// Opens one more file behind those that are open. Empty on success, else the message for the
    /// user, and then nothing of the file is in use. `progress` gets percentages; false from it
    /// breaks the opening off.
    [[nodiscard]] std::string openFile(const std::filesystem::path& path,
                                       const std::function<bool(int)>& progress = {});
    /// Opens the file of the towns that places are found by; in the place of the one before. As
    /// openFile() does.
    [[nodiscard]] std::string openTowns(const std::filesystem::path& path);
    /// Closes all files, forgets the exclusions and the user records.
    void clear();
    /// Closes all files and takes over the other database's with its exclusions; the user records
    /// stay this one's own. Rows of the former files mean nothing any more.
    void takeFilesFrom(NavDatabase& other);
    [[nodiscard]] const std::vector<std::unique_ptr<DatabaseFile>>& files() const { return files_; }
    /// Of the first file; 0 when there is none or it has no letter.
    [[nodiscard]] char regionLetter() const;

    /// The user's records take part in look-ups from here on; null for none. The store must
    /// outlive the database or be taken back.
    void setUserRecords(const UserRecordStore* records) { userRecords_ = records; }

    /// The place with this RecordKey or, for a bare identifier, the best of all kinds: with a
    /// reference position the nearest, a navaid being preferred to an airport that is less than
    /// 25 NM nearer; without one the navaid, else the airport, else the fix. An airport is also
    /// found with or without its file's region letter in front. Null when there is none. The
    /// record stays the database's and lives until the next Find(): Clone() it to keep it.
    const DatabaseRecord* Find(std::string_view key, std::optional<GeoPoint> near = std::nullopt);

    /// Searches one index of one table in all files (an airport index with the region letter
    /// added or taken off when there is no exact match), then the user records that would stand
    /// in it. `wanted` is a kind letter or 0 for any kind.
    std::unique_ptr<DatabaseRecord> FindInIndex(std::string_view ident, std::string_view index,
                                                std::string_view table,
                                                std::optional<GeoPoint> near, char wanted);

    /// An excluded row is never returned: the user's records replace it.
    void exclude(const RowMatch& row);
    [[nodiscard]] const std::vector<RowMatch>& exclusions() const { return exclusions_; }
    /// The row that the last successful search chose; nothing before the first one, and after one
    /// that chose a user record.
    [[nodiscard]] std::optional<RowMatch> lastMatch() const { return lastMatch_; }

    /// Fills the runways and frequencies of an airport from the file that it came from; leaves
    /// user airports as they are, and those of files that have been closed since: in another file
    /// their identifier may be another airport's.
    void loadDetails(AirportRecord& airport) const;

    /// Replaces `routes` by the texts of the airway's pieces, in file order; files that are out of
    /// date give none, and pieces that a file of a later cycle describes anew are left out.
    void GetAirwayRoutes(std::string_view name, std::vector<std::string>& routes) const;

    /// Replaces `places` by the places of these kinds in the box, at most `limit` of them. What
    /// `accept` refuses is not read to its end.
    void placesIn(const GeoBox& box, KindMask kinds, std::size_t limit, std::vector<Place>& places,
                  const PlaceFilter& accept = {}) const;

    /// The same among the user's own records alone.
    void userPlacesIn(const GeoBox& box, KindMask kinds, std::vector<Place>& places) const;

    /// The nearest `count` places of these kinds within `withinNm`, nearest first.
    [[nodiscard]] std::vector<NearPlace> nearest(GeoPoint position, KindMask kinds,
                                                 std::size_t count, double withinNm) const;

    /// Replaces `places` by those of `kinds` whose identifiers begin with this text, at most
    /// `rowLimit` of each kind and file, in the order of the identifiers. False when it left some
    /// out.
    bool placesBeginning(std::string_view beginning, KindMask kinds, std::size_t rowLimit,
                         std::vector<Place>& places) const;

    /// Replaces `places` by those of `kinds` with just this identifier, at most `rowLimit` of each
    /// kind and file.
    void placesNamed(std::string_view ident, KindMask kinds, std::size_t rowLimit,
                     std::vector<Place>& places) const;

    /// The first `limit` places of `kinds` in whose names, or those of the towns around them, words
    /// begin with those of the text; the nearest first. Names in a file without an index of them
    /// are looked through near `near` only.
    [[nodiscard]] std::vector<NamedPlace> placesByName(std::string_view text, KindMask kinds,
                                                       std::optional<GeoPoint> near,
                                                       std::size_t limit) const;

    /// The full record of a place; null when its file can no longer be read. Not for places that
    /// were found before other files were taken over.
    [[nodiscard]] std::unique_ptr<DatabaseRecord> recordOf(const Place& place) const;

    /// The magnetic variation there today by the magnetic model, degrees, east positive; kNoAngle
    /// for no position. What airports carry of their own belongs to their runways.
    [[nodiscard]] double variationAt(GeoPoint position) const;

 private:
    struct Search;

    [[nodiscard]] PlaceSources sources() const;
    [[nodiscard]] bool isExcluded(const RowMatch& row) const;
    void searchFile(int file, std::string_view ident, Search& search) const;
    void searchUserRecords(std::string_view ident, Search& search) const;
    [[nodiscard]] std::unique_ptr<DatabaseRecord> recordAt(const RowMatch& match) const;
    void noteMatch(const DatabaseRecord* record);
    void addUnindexedNames(std::span<const std::string> words, KindMask kinds, GeoPoint near,
                           std::vector<NamedPlace>& places) const;
    std::unique_ptr<DatabaseRecord> findAirport(std::string_view ident,
                                                std::optional<GeoPoint> near);
    std::unique_ptr<DatabaseRecord> findBare(std::string_view ident, std::optional<GeoPoint> near);

    const Clock& clock_;
    FileSystem& disk_;
    std::vector<std::unique_ptr<DatabaseFile>> files_;
    std::unique_ptr<DatabaseFile> towns_;        ///< null for none
    std::vector<RowMatch> exclusions_;           ///< ascending
    std::vector<ExcludedPlace> excludedPlaces_;  ///< the same, by latitude
    const UserRecordStore* userRecords_ = nullptr;
    std::unique_ptr<DatabaseRecord> lastFound_;
    std::optional<RowMatch> lastMatch_;
};

}  // namespace korvel
