#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "base/Guarded.h"
#include "geo/GeoPoint.h"
#include "ground/terrain/HeightPyramid.h"
#include "platform/Event.h"

namespace korvel {

/// Heights of the data folders' tiles. A thread of its own reads what is wanted; what is there can
/// be asked for at any time and never waits for a file. The owner's thread only, but for the
/// thread inside. Without a thread nothing is ever there.
class TerrainStore {
 public:
    /// What is kept; reading a tile takes some 80 MB more for a moment.
    static constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

    TerrainStore() = default;
    TerrainStore(const TerrainStore&) = delete;
    TerrainStore& operator=(const TerrainStore&) = delete;
    /// Waits for the tile that is being read.
    ~TerrainStore();

    /// The tiles of these folders from now on, in place of those before.
    void open(std::vector<std::filesystem::path> folders);

    /// Who wants tiles, the more important first.
    enum class Purpose : std::uint8_t { Alarms, Map, Profile };
    /// These tiles are wanted with posts about so far from each other, and no longer those that the
    /// same purpose wanted before. Where they would not fit they come coarser.
    void want(Purpose purpose, std::vector<TileCorner> corners, double metres);

    enum class State : std::uint8_t { None, Awaited, Loaded };
    /// None where the folders have no tile, or a damaged one, and before they have been looked
    /// through.
    struct Tile {
        State state = State::None;
        std::shared_ptr<const HeightPyramid> heights;
    };
    [[nodiscard]] Tile tile(TileCorner corner) const;

    /// The tiles that lie within so many nautical miles of a point.
    [[nodiscard]] static std::vector<TileCorner> around(GeoPoint point, double withinNm);

    /// The highest ground within so many nautical miles of a point, feet above sea, of tiles that
    /// are loaded; nothing where none is known.
    [[nodiscard]] std::optional<double> highestFt(GeoPoint point, double withinNm) const;
    /// Between the posts, feet above sea, of a tile that is loaded.
    [[nodiscard]] std::optional<double> heightFt(GeoPoint point) const;

    /// Grows with each tile that comes or goes.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }
    /// Whether all that is wanted and can be had is there.
    [[nodiscard]] bool isSettled() const;
    /// Returns when it is; for pictures without a window.
    void waitUntilSettled();
    /// What could not be read, a text each, since the folders were opened.
    [[nodiscard]] std::vector<std::string> problems() const;
    [[nodiscard]] std::size_t bytes() const { return state_.lock()->bytes; }

 private:
    struct Want {
        std::vector<TileCorner> corners;
        double metres = 0;
        friend bool operator==(const Want&, const Want&) = default;
    };
    struct Shared {
        std::optional<std::vector<std::filesystem::path>> newFolders;
        std::array<Want, 3> wants;  ///< by purpose
        std::set<TileCorner> there;
        std::map<TileCorner, std::shared_ptr<const HeightPyramid>> loaded;
        std::size_t bytes = 0;  ///< of what is loaded
        std::vector<std::string> problems;
        bool idle = false;
    };
    struct Job {
        TileCorner corner;
        double metres = 0;
    };

    void run();
    static std::optional<Job> nextJob(Shared& shared);
    static void makeRoom(Shared& shared, TileCorner newest);
    static std::map<TileCorner, double> wantedTiles(const Shared& shared);

    Guarded<Shared> state_;
    std::atomic<std::uint64_t> revision_{0};
    std::atomic<bool> ends_{false};
    Event work_;     ///< there may be something to do
    Event settled_;  ///< there is nothing
    std::thread thread_;
};

}  // namespace korvel
