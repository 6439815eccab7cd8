#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

#include "navdb/file/DatabaseLayout.h"

namespace korvel {

// What stands in the tables of an ".ng2" file, and in which order its indexes hold the rows.
//
//   table    rows                                 by identifier  near a place
//   _APT     land airports                        AptKey         ApNKey
//   _AP2     seaplane bases and heliports         Ap2Key         A2NKey
//   _NAV     VORs and NDBs                        NavKey         NvNKey
//   _WPT     fixes                                WptKey         WpNKey
//   _AWY     one row for each piece of an airway  Airway
//   Runway   runway ends of _APT                  RwyKey
//   Rwy2     the same of _AP2                     Rw2Key
//   Comm     frequencies of both                  ComKey
//   _CELL    where each cell's run begins         CellRun
//   _NAM     words of names                       NamKey
//   _TWN     words of the names of towns          TwnKey, alone in a file of its own
//
// Identifier indexes order rows by the text of field ID, byte by byte. The sub-tables' indexes
// order rows by the text of ARPT_ID, which is unique among a file's airports; an airport's rows
// keep their own order: runways one after the other, each the low end before the high end, both
// with the same number RWY; a runway with one row (a helipad) has no high end.
//
// Location indexes order rows by cell, then by ascending latitude. Cells are one degree of
// longitude wide, numbered from 0 at 180 W to 359; 180 E is cell 0. Row c of CellRun is cell c's:
// its fields, named like the location indexes, hold the number (from 0) of the first row of that
// cell or a later one. The area grid runs from cell 0 to 359; its word c is the file offset of row
// c of CellRun, and the word behind the last cell leads to a row that holds the row counts.
//
// NamKey orders by ID, too, which is a word of the name of an airport or navaid, or of the town
// that its source names, in capitals (NameWords.h says what a word is). PLACE is the identifier
// that it leads to, KIND its kind, LAT and LON where it is, and TOWN the town's name, empty where
// the word is the place's own. Files without this index cannot be searched by names. TwnKey orders
// by ID, a word of the town's NAME; SIZE is 1 for a city.
//
// Airways: ROUTE lists fix identifiers in airway order, separated by spaces, at most 1023 bytes. A
// longer piece is cut into several rows, each of which begins with the fix that ended the one
// before.

struct FieldLayout {
    std::string_view name;
    FieldType type = FieldType::Integer;
};

/// MAG_VAR in degrees, east positive, 1000 for unknown; ELEV in feet or kNoInteger; FLAGS of
/// AirportFlag.
inline constexpr std::array kAirportFields{
    FieldLayout{"ID", FieldType::Text},         FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"LON", FieldType::Degrees},     FieldLayout{"ARPT_ID", FieldType::Text},
    FieldLayout{"MAG_VAR", FieldType::Fixed16}, FieldLayout{"ELEV", FieldType::Integer},
    FieldLayout{"NAME", FieldType::Text},       FieldLayout{"INFO", FieldType::Text},
    FieldLayout{"FLAGS", FieldType::Integer},
};

/// FREQ in MHz of a VOR, kHz of an NDB. TYPE: see PlaceType.
inline constexpr std::array kNavaidFields{
    FieldLayout{"ID", FieldType::Text},
    FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"LON", FieldType::Degrees},
    FieldLayout{"TYPE", FieldType::Integer},
    FieldLayout{"FREQ", FieldType::TenThousandths},
    FieldLayout{"NAME", FieldType::Text},
};

inline constexpr std::array kFixFields{
    FieldLayout{"ID", FieldType::Text},
    FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"LON", FieldType::Degrees},
    FieldLayout{"TYPE", FieldType::Integer},
};

inline constexpr std::array kAirwayFields{
    FieldLayout{"ID", FieldType::Text},
    FieldLayout{"ROUTE", FieldType::Text},
};

/// LENGTH and WIDTH in feet; ID is the end's designator ("09L"); MAG_HDG in whole degrees, ELEV
/// in feet, LAT and LON: kNoInteger as stored for unknown; PATTERN 'L', 'R' or 0 for unknown.
inline constexpr std::array kRunwayEndFields{
    FieldLayout{"ARPT_ID", FieldType::Text},   FieldLayout{"RWY", FieldType::Integer},
    FieldLayout{"LENGTH", FieldType::Integer}, FieldLayout{"WIDTH", FieldType::Integer},
    FieldLayout{"SURFACE", FieldType::Text},   FieldLayout{"INFO", FieldType::Text},
    FieldLayout{"ID", FieldType::Text},        FieldLayout{"MAG_HDG", FieldType::Integer},
    FieldLayout{"LAT", FieldType::Degrees},    FieldLayout{"LON", FieldType::Degrees},
    FieldLayout{"ELEV", FieldType::Integer},   FieldLayout{"PATTERN", FieldType::Integer},
};

/// TYPE is a text such as "TWR"; FREQ in MHz.
inline constexpr std::array kCommFields{
    FieldLayout{"ARPT_ID", FieldType::Text},
    FieldLayout{"TYPE", FieldType::Text},
    FieldLayout{"FREQ", FieldType::TenThousandths},
};

inline constexpr std::array kCellFields{
    FieldLayout{"ApNKey"},
    FieldLayout{"A2NKey"},
    FieldLayout{"NvNKey"},
    FieldLayout{"WpNKey"},
};

inline constexpr std::array kNameFields{
    FieldLayout{"ID", FieldType::Text},      FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"LON", FieldType::Degrees},  FieldLayout{"PLACE", FieldType::Text},
    FieldLayout{"KIND", FieldType::Integer}, FieldLayout{"TOWN", FieldType::Text},
};

inline constexpr std::array kTownFields{
    FieldLayout{"ID", FieldType::Text},
    FieldLayout{"LAT", FieldType::Degrees},
    FieldLayout{"LON", FieldType::Degrees},
    FieldLayout{"NAME", FieldType::Text},
    FieldLayout{"SIZE"},
};

/// Stands for "unknown" where a field says so.
inline constexpr std::int32_t kNoInteger = std::numeric_limits<std::int32_t>::min();

/// Low four bits of TYPE; the high four of the low byte are the usage (see NavaidRecord.h).
enum class PlaceType : std::uint8_t {
    Vor = 0,
    VorDme = 1,
    Vortac = 2,
    Ndb = 3,
    NdbDme = 4,
    Fix = 5
};

/// Bits of an airport's FLAGS.
enum AirportFlag : std::uint32_t {
    kAirportTower = 0x01,
    kAirportSeaplaneBase = 0x02,
    kAirportHeliport = 0x04,
    kAirportHardSurface = 0x08,
    kAirportLighted = 0x10,
    kAirportBeacon = 0x20,
    kAirportPrivate = 0x40,
};

inline constexpr int kCellCount = 360;

/// The cell of a longitude, also the first cell of a range that begins there.
int westernCell(double degrees);
/// The cell behind a range that ends at this longitude; a range whose western cell exceeds its
/// eastern one wraps, and 360 is to be added to the eastern one.
int easternCell(double degrees);
/// westernCell() of a longitude as it is stored, in millionths of a degree.
int cellOfStored(std::int32_t millionths);

}  // namespace korvel
