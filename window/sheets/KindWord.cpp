#include "window/sheets/KindWord.h"

#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {

QString kindWord(KindMask kind) {
    switch (kind) {
        case kAirportKind:
            return toQString(kSheetTexts.kindAirport);
        case kVorKind:
            return toQString(kSheetTexts.kindVor);
        case kNdbKind:
            return toQString(kSheetTexts.kindNdb);
        default:
            return toQString(kSheetTexts.kindFix);
    }
}

}  // namespace korvel
