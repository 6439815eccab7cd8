#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// What a place is, as bits: test with `&`. Any of the bits 8 and 16 makes an airport key; the
/// airport record itself answers kAirportKind.
using KindMask = unsigned;
inline constexpr KindMask kVorKind = 1;
inline constexpr KindMask kNdbKind = 2;
inline constexpr KindMask kFixKind = 4;
inline constexpr KindMask kAirportKind = 24;
inline constexpr KindMask kAirportBit = 8;
inline constexpr KindMask kAllKinds = kVorKind | kNdbKind | kFixKind | kAirportKind;

// A RecordKey is a text: the kind's letter, '.', and the identifier ("v.OAK"). The same identifier
// may stand under several letters.

/// 'v', 'n', 'f' or 'a'; 0 for any other kind code.
char kindLetter(KindMask kind);

/// The key, empty for a kind code that has no letter.
std::string makeRecordKey(KindMask kind, std::string_view ident);

/// Whether the text begins with "a.", "v.", "n." or "f."; without that it is a bare identifier.
bool hasKindPrefix(std::string_view key);

/// The kind of a key that begins with its letter; kAllKinds of a bare identifier.
KindMask kindsOfKey(std::string_view key);

/// What stands behind the prefix, or the whole text when there is none.
std::string_view identOfKey(std::string_view key);

/// Whether the identifier begins with the region's letter and is long enough (4 characters) for
/// it to be meant as one.
bool hasRegionLetter(std::string_view ident, char region);

/// The other way to spell an airport of this region: without the region's letter, or with it.
std::string otherSpelling(std::string_view ident, char region);

}  // namespace korvel
