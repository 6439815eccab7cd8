#pragma once

#include <filesystem>
#include <string>
#include <type_traits>

#include <QFile>
#include <QString>

namespace korvel {

/// The name as it can be shown. One whose bytes are no text is readable then, but no name any more:
/// what opens files keeps the path itself.
template <class Char>
QString shownName(const std::basic_string<Char>& name) {
    if constexpr (std::is_same_v<Char, char>)
        return QFile::decodeName(name.c_str());
    else
        return QString::fromStdWString(name);
}

inline QString shownPath(const std::filesystem::path& path) { return shownName(path.native()); }

/// The path of a name that the toolkit has given.
inline std::filesystem::path toPath(const QString& name) {
    if constexpr (std::is_same_v<std::filesystem::path::value_type, char>)
        return QFile::encodeName(name).toStdString();
    else
        return name.toStdWString();
}

}  // namespace korvel
