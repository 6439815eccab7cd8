#pragma once

#include <QString>

#include "navdb/records/RecordKey.h"

namespace korvel {

/// What the pilot calls a place of this kind.
QString kindWord(KindMask kind);

}  // namespace korvel
