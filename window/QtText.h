#pragma once

#include <string_view>

#include <QString>

#include "config/Text.h"

namespace korvel {

inline QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline QString toQString(Text id) { return toQString(text(id)); }

}  // namespace korvel
