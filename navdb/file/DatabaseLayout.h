#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvel {

// The bytes of an ".ng2" file: a small self-describing table store. Integers are little-endian.
// Names are 8 bytes, NUL-padded (a name of 8 characters has no NUL).
//
//   header           64 bytes at offset 0, see kHeader...Offset
//   table directory  entries, ended by a byte 0 where an entry's name would begin:
//                      name 8 | row size u32 | field count n u32
//                      n x (name 8 | type u32 | length u32)
//                      key count m u32 (at most 3) | m x u32
//                    An entry is at most 256 bytes long: with three keys, 14 fields.
//   index directory  entries of 20 bytes, ended by a byte 0 where a name would begin:
//                      name 8 | offset of the table's directory entry u32
//                      data start u32 | data length u32
//   index data       whole rows of the table, in the index's order; a row may stand in several
//                    indexes, once in each
//   string area      texts that end with a 0 byte, at most 1024 bytes; only the low 7 bits of a
//                    byte count. Text 0 is the empty one.
//   area grid        first cell u16 in the high half and last cell in the low half of a u32, then
//                    last - first + 2 words u32; see DatabaseTables.h
//
// A row holds its fields in directory order without gaps. A byte block takes the field's length,
// every other type 4 bytes. Fields that are not byte blocks declare length 4, and no byte block
// stands before one of them: readers that add up the declared lengths then agree with readers that
// know the widths.

inline constexpr std::string_view kFormatVersion = "NavDb4.7";
inline constexpr std::size_t kFormatNameLength = 5;    ///< "NavDb"; the version number follows
inline constexpr double kOldestReadableVersion = 4.3;  ///< and the major number must agree
/// From this version on, the full checksum is set to 0 once it has been found to hold.
inline constexpr double kFirstMarkedVersion = 4.5;

inline constexpr std::size_t kHeaderSize = 64;
inline constexpr std::size_t kVersionLength = 10;
inline constexpr std::size_t kFullChecksumOffset = 10;    ///< over everything from offset 14 on
inline constexpr std::size_t kRegionOffset = 14;          ///< low byte: ICAO region letter, or 0
inline constexpr std::size_t kTableDirectoryOffset = 18;  ///< this and the next two: file offsets
inline constexpr std::size_t kIndexDirectoryOffset = 22;
inline constexpr std::size_t kStringAreaOffset = 26;
inline constexpr std::size_t kExpiryOffset = 30;            ///< decimal YYYYMMDD, 0 for none
inline constexpr std::size_t kSouthernCoverageOffset = 34;  ///< lowest and highest latitude of
inline constexpr std::size_t kNorthernCoverageOffset = 38;  ///< the places, signed millionths
inline constexpr std::size_t kDataCycleOffset = 42;         ///< decimal YYCC (1310), 0 for unknown
inline constexpr std::size_t kAreaGridOffset = 46;          ///< file offset, 0 for no grid
inline constexpr std::size_t kHeaderChecksumOffset = 50;

inline constexpr std::size_t kNameLength = 8;
inline constexpr std::size_t kFieldDescriptorSize = 16;
inline constexpr std::size_t kIndexEntrySize = 20;
inline constexpr std::size_t kMaxDirectoryEntry = 256;
inline constexpr std::uint32_t kMaxKeys = 3;
inline constexpr std::size_t kMaxTextLength = 1024;
inline constexpr std::uint8_t kTextMask = 0x7F;

/// What a field's bytes mean.
enum class FieldType : std::uint32_t {
    Integer = 1,         ///< signed
    Bytes = 2,           ///< as many raw bytes as the field's length
    Text = 3,            ///< offset into the string area
    Degrees = 4,         ///< signed millionths
    TenThousandths = 5,  ///< signed: frequencies
    Fixed16 = 6,         ///< signed 16.16: magnetic variation
    MarkedText = 7,      ///< a text like `text`; the word itself is kept beside it
};

inline constexpr double kDegreesUnit = 1e-6;
inline constexpr double kTenThousandthsUnit = 0.0001;
inline constexpr double kFixed16Unit = 1.52587890625e-5;

}  // namespace korvel
