#pragma once

// How a base map lies in its file; docs/base-map-format.md describes it in words.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvel {

inline constexpr std::string_view kMapMagic = "KORVMAP\n";
inline constexpr std::uint32_t kMapVersion = 1;

// The header, 64 bytes. What it does not name is zero.
inline constexpr std::size_t kMapHeaderSize = 64;
inline constexpr std::size_t kMapVersionAt = 8;
inline constexpr std::size_t kMapMadeAt = 12;      ///< the sources' date, 20171231
inline constexpr std::size_t kMapFileSizeAt = 16;  ///< bytes
inline constexpr std::size_t kMapHeadSizeAt = 20;  ///< header, attribution, sheets and indexes
inline constexpr std::size_t kMapChecksumAt = 24;  ///< CRC-32 of the head with zeros in this field
inline constexpr std::size_t kMapAttributionAt = 28;  ///< where the text stands; its bytes follow
inline constexpr std::size_t kMapAttributionSizeAt = 32;
inline constexpr std::size_t kMapSheetsAt = 36;
inline constexpr std::size_t kMapSheetCountAt = 40;
inline constexpr std::size_t kMapReliefIndexAt = 44;  ///< 0 for none
inline constexpr std::size_t kMapTownIndexAt = 48;    ///< 0 for none

// A sheet's row, seven words.
inline constexpr std::size_t kSheetRowSize = 28;
inline constexpr std::size_t kMostSheets = 64;

/// What a sheet of the map holds.
enum class SheetKind : std::uint8_t { Land = 1, Rivers = 2, Borders = 3 };

/// All of the world in one degree of detail, cut into bins. Coordinates inside a bin count from its
/// south-west corner in steps of the lattice, both ends included.
struct MapSheet {
    SheetKind kind = SheetKind::Land;
    int binDegrees = 1;                    ///< divides 180
    int stepsPerDegree = 1;                ///< binDegrees times this fits 16 bits
    std::uint32_t toleranceM = 0;          ///< how far lines may lie off their source's
    std::uint32_t metresPerPixelFrom = 0;  ///< meant for this much
    std::uint32_t metresPerPixelTo = 0;    ///< up to but not including; kNoLimit for all above
    std::uint32_t indexAt = 0;

    static constexpr std::uint32_t kNoLimit = 0xFFFFFFFF;

    [[nodiscard]] int columns() const { return 360 / binDegrees; }
    [[nodiscard]] int rows() const { return 180 / binDegrees; }
    [[nodiscard]] int bins() const { return columns() * rows(); }
    [[nodiscard]] int steps() const { return binDegrees * stepsPerDegree; }
};

/// What is in a bin of land. Bins of lines are Mixed where there are any, else Sea.
enum class BinState : std::uint8_t { Sea = 0, Land = 1, Mixed = 2 };

// An index has a word for each bin, rows from the south, columns from 180 W, and one more for the
// end: the state in the upper two bits, where the bin's bytes begin in the others.
inline constexpr unsigned kBinStateShift = 30;
inline constexpr std::uint32_t kBinOffsetMask = (1U << kBinStateShift) - 1;

// Heights: tiles of 15 degrees, 180 x 180 cells from the south-west corner, rows northwards.
inline constexpr int kReliefTileDegrees = 15;
inline constexpr int kReliefCells = 180;
inline constexpr int kReliefCellsPerDegree = kReliefCells / kReliefTileDegrees;
inline constexpr int kReliefColumns = 360 / kReliefTileDegrees;
inline constexpr int kReliefRows = 180 / kReliefTileDegrees;
inline constexpr int kReliefStepM = 20;

// Towns: cells of 5 degrees; positions count from the cell's south-west corner.
inline constexpr int kTownCellDegrees = 5;
inline constexpr int kTownStepsPerDegree = 8192;
inline constexpr int kTownColumns = 360 / kTownCellDegrees;
inline constexpr int kTownRows = 180 / kTownCellDegrees;
inline constexpr int kPopulationStepsPerDoubling = 8;

}  // namespace korvel
