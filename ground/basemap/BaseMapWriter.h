#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "ground/basemap/BaseMapLayout.h"

namespace korvel {

/// Puts a ".map" file together from tiles that are encoded already. The same input makes the same
/// bytes everywhere.
class BaseMapWriter {
 public:
    /// `made` is YYYYMMDD.
    BaseMapWriter(std::uint32_t made, std::string attribution)
        : made_(made), attribution_(std::move(attribution)) {}

    /// A bin each, rows from the south, columns from 180 W. Sea and Land have no bytes.
    void addSheet(const MapSheet& sheet, std::vector<BinState> states,
                  std::vector<std::string> tiles);
    /// kReliefColumns x kReliefRows of them, the same order.
    void setRelief(std::vector<std::string> tiles) { relief_ = std::move(tiles); }
    /// kTownColumns x kTownRows of them.
    void setTowns(std::vector<std::string> cells) { towns_ = std::move(cells); }

    /// The whole file.
    [[nodiscard]] std::string bytes() const;

 private:
    struct Written {
        MapSheet sheet;
        std::vector<BinState> states;
        std::vector<std::string> tiles;
    };

    std::uint32_t made_;
    std::string attribution_;
    std::vector<Written> sheets_;
    std::vector<std::string> relief_;
    std::vector<std::string> towns_;
};

}  // namespace korvel
