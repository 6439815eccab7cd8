#pragma once

#include <string_view>

#include <QString>

#include "config/StringTable.h"

namespace korvel {

inline QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline QString toQString(TextId id) { return toQString(text(id)); }

}  // namespace korvel
