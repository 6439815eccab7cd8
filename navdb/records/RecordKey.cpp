#include "navdb/records/RecordKey.h"

namespace korvel {

char kindLetter(KindMask kind) {
    switch (kind) {
        case kVorKind:
            return 'v';
        case kNdbKind:
            return 'n';
        case kFixKind:
            return 'f';
        case kAirportBit:
        case kAirportKind & ~kAirportBit:
        case kAirportKind:
            return 'a';
        default:
            return 0;
    }
}

std::string makeRecordKey(KindMask kind, std::string_view ident) {
    const char letter = kindLetter(kind);
    if (letter == 0)
        return {};
    std::string key{letter, '.'};
    key += ident;
    return key;
}

bool hasKindPrefix(std::string_view key) {
    return key.size() >= 2 && key[1] == '.' &&
           std::string_view("avnf").find(key[0]) != std::string_view::npos;
}

KindMask kindsOfKey(std::string_view key) {
    for (const KindMask kind : {kVorKind, kNdbKind, kFixKind, kAirportKind})
        if (hasKindPrefix(key) && key.front() == kindLetter(kind))
            return kind;
    return kAllKinds;
}

std::string_view identOfKey(std::string_view key) {
    return hasKindPrefix(key) ? key.substr(2) : key;
}

bool hasRegionLetter(std::string_view ident, char region) {
    constexpr std::size_t kShortest = 4;
    return ident.size() >= kShortest && ident.front() == region;
}

std::string otherSpelling(std::string_view ident, char region) {
    return hasRegionLetter(ident, region) ? std::string(ident.substr(1))
                                          : std::string(1, region).append(ident);
}

}  // namespace korvel
