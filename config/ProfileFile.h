#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/ToldOnce.h"
#include "platform/FileSystem.h"
#include "platform/RegistryProfile.h"

namespace korvel {

/// Every setting lies in this section.
inline constexpr std::string_view kOptionsSection = "Options";

/// Key text to value text. Integers lie under "section:name" in decimal, strings under
/// "section.name": one section and name can have both, and existing files depend on that.
using ProfileEntries = std::map<std::string, std::string, std::less<>>;

/// The entries in the bytes of a profile file: one "key=value" a line, bit 7 of every byte set or
/// clear. ';' starts a comment, white space around key and value does not count, a line without
/// '=' is the value of the empty key, and the later of two equal keys stands.
ProfileEntries parseProfile(std::string_view bytes);

/// The same entries as the file holds them: CR LF behind each line, bit 7 of every byte set.
std::string formatProfile(const ProfileEntries& entries);

/// The program's settings store. What the file lacks is taken once from the registry profile, or
/// from the caller's default, and is an entry from then on; it reaches the file with the next save.
/// There is one for the program, made first and destroyed last. Main thread only.
///
/// What is set with deferred saving is saved by keepSaved(), at the destruction at the latest.
///
/// The file keeps seven bits of each byte; values with ';', line ends or white space at their ends
/// come back without them. Nothing here complains about that, callers do not store such values.
class ProfileFile {
 public:
    enum class Access {
        Own,
        Look  ///< another program owns the file: nothing is written, whatever is set
    };

    /// A larger file is none of ours: what stands in its first part counts, and it is set aside.
    static constexpr std::size_t kLargestBytes = std::size_t{4} << 20U;

    /// Opens `fileName` in `folder` and creates it when it is missing. `registry` and `disk` must
    /// outlive this.
    ProfileFile(const std::filesystem::path& folder, RegistryProfile& registry,
                std::string_view fileName = "korvel.ini", FileSystem& disk = systemFileSystem(),
                Access access = Access::Own);
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;
    /// Saves.
    ~ProfileFile();

    /// The file in use; empty when it could not be opened, and then the registry is saved to.
    const std::filesystem::path& path() const { return path_; }
    const ProfileEntries& entries() const { return entries_; }

    /// Where a file is kept that could not be read to its end as settings, since the next save
    /// writes over it; empty when it could, or could not be kept.
    const std::filesystem::path& damagedCopy() const { return damagedCopy_; }

    // The setters save unless that is deferred; false when saving failed, and then the value is
    // good for this run and reaches the file with the next save that succeeds.

    /// A value that does not begin with an integer counts as missing and is replaced.
    int getInt(std::string_view section, std::string_view name, int fallback);
    bool setInt(std::string_view section, std::string_view name, int value, bool deferSave = false);

    std::string getString(std::string_view section, std::string_view name,
                          std::string_view fallback);
    bool setString(std::string_view section, std::string_view name, std::string_view value,
                   bool deferSave = false);

    /// False when the file cannot be written; it then keeps what it held, and takeTrouble() tells.
    bool save();

    /// The message for the pilot when what was set could not be saved, told once for as long as it
    /// lasts; empty for nothing to tell.
    [[nodiscard]] std::string takeTrouble() { return trouble_.take(); }
    /// The same for as long as it lasts.
    [[nodiscard]] const std::string& trouble() const { return trouble_.lasting(); }

    /// To be called every half second with a clock's ticks: saves what was set since the last save,
    /// within 2 s. A save that fails is tried again every 10 s.
    void keepSaved(std::int64_t nowMs);

 private:
    void load(const std::filesystem::path& file);
    void setAside(const std::filesystem::path& file, const std::string& bytes);
    void enter(std::string key, std::string value);
    bool isProtected() const;
    void saveToRegistry();

    std::filesystem::path path_;
    std::string fileName_;
    std::filesystem::path damagedCopy_;
    ProfileEntries entries_;
    RegistryProfile& registry_;
    FileSystem& disk_;
    Access access_;
    ToldOnce trouble_;
    bool isUnsaved_ = false;              ///< something was set since the last save
    std::optional<std::int64_t> saveAt_;  ///< tick; nothing while no save is due
};

}  // namespace korvel
