#include "window/sheets/KindWord.h"

#include "window/QtText.h"

namespace korvel {

QString kindWord(KindMask kind) {
    switch (kind) {
        case kAirportKind:
            return toQString(TextId::KindAirport);
        case kVorKind:
            return toQString(TextId::KindVor);
        case kNdbKind:
            return toQString(TextId::KindNdb);
        default:
            return toQString(TextId::KindFix);
    }
}

}  // namespace korvel
