#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "paint/Color.h"
#include "platform/FileSystem.h"

namespace korvel {

class DataFileSearch;
class ProfileFile;

/// Every colour that the pages paint, by its dotted key ("map.background"). One for the program,
/// rebuilt at start-up and when preferences are applied; main thread only. Looking a colour up
/// allocates nothing.
class ColorScheme {
 public:
    using Entry = std::pair<std::string, ColorValue>;

    /// The day scheme, for painters without settings; Reload() does nothing then.
    ColorScheme();
    /// Built by Reload(). Both must outlive this.
    ColorScheme(ProfileFile& profile, const DataFileSearch& files);

    /// Takes the scheme that the setting "SchemeFile" names. Never fails: what cannot be read
    /// leaves the day scheme.
    void Reload();

    /// Takes one of the built-in schemes or, over the day scheme, the first readable file of that
    /// bare name. Files of 20480 bytes or more are ignored.
    void load(std::string_view schemeName, const DataFileSearch& files,
              FileSystem& disk = systemFileSystem());

    /// Black for a key that the table does not hold.
    ColorValue Color(std::string_view key) const;

    /// One line "key = red,green,blue" or "key = RRGGBB" of a scheme file; ';' starts a comment.
    /// A line that is neither changes nothing.
    void ParseLine(std::string_view line);
    /// The bytes of a scheme file, UTF-16 or not.
    void parseText(std::string_view bytes);

    /// All keys with their colours in ascending byte order of the keys.
    std::span<const Entry> entries() const { return entries_; }

 private:
    void set(std::string_view key, ColorValue color);

    std::vector<Entry> entries_;  ///< ascending by key
    ProfileFile* profile_ = nullptr;
    const DataFileSearch* files_ = nullptr;
};

/// "<Default>", "<Default2>", "<Night-Flight>" and "<Glass>" in every language: the settings keep
/// them.
std::string daySchemeName();
std::string secondDaySchemeName();
std::string nightSchemeName();
std::string glassSchemeName();

/// "<Glass>" for "Glass", any other name as it is: only that scheme is known without its brackets.
std::string fullSchemeName(std::string_view name);

/// The list that the preferences show: the built-in schemes, then every "*.SCM" file found.
std::vector<std::string> listSchemes(const DataFileSearch& files);

/// The entry of the list that stands for the stored setting: the first one that begins with it,
/// without regard to case; else the first.
std::size_t selectedScheme(std::span<const std::string> list, std::string_view stored);

}  // namespace korvel
