#include "config/ProfileFile.h"

#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/TextBytes.h"
#include "config/texts/FileTexts.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kByteOrderMark = "\xFF\xFE";

char withoutBit7(char byte) { return static_cast<char>(static_cast<unsigned char>(byte) & 0x7FU); }
char withBit7(char byte) { return static_cast<char>(static_cast<unsigned char>(byte) | 0x80U); }

std::string joinKey(std::string_view section, char separator, std::string_view name) {
    std::string key(section);
    key += separator;
    key += name;
    return key;
}

std::optional<int> readInt(std::string_view text) { return scanInt(text); }

/// What counts of a line.
std::string_view contentOf(std::string_view line) {
    return trimmed(line.substr(0, line.find(';')), kWhiteSpace);
}

void parseLine(std::string_view content, ProfileEntries& entries) {
    const std::size_t equals = content.find('=');
    if (equals == std::string_view::npos) {
        entries.insert_or_assign(std::string(), std::string(content));
        return;
    }
    entries.insert_or_assign(std::string(trimmedRight(content.substr(0, equals), kWhiteSpace)),
                             std::string(trimmedLeft(content.substr(equals + 1), kWhiteSpace)));
}

/// Calls `use` with the content of every line that has one.
template <class Use>
void forEachLine(std::string_view bytes, Use use) {
    std::string cleared(bytes);
    const std::size_t start = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    for (std::size_t i = start; i < cleared.size(); ++i)
        cleared[i] = withoutBit7(cleared[i]);
    const std::string text = decodeTextBytes(cleared);
    std::string_view rest = text;
    while (!rest.empty()) {
        // A CR LF counts as one break, but the empty line between the two would add nothing.
        const std::size_t end = std::min(rest.find_first_of(kLineEnds), rest.size());
        if (const auto content = contentOf(rest.substr(0, end)); !content.empty())
            use(content);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

/// What a save writes has '=' in each line. Half a line, as a cut of the power leaves it, has none,
/// or a block of zeros follows it.
bool isDamaged(std::string_view bytes) {
    bool damaged = false;
    forEachLine(bytes, [&damaged](std::string_view content) {
        damaged |= content.find('=') == std::string_view::npos ||
                   content.find('\0') != std::string_view::npos;
    });
    return damaged;
}

}  // namespace

ProfileEntries parseProfile(std::string_view bytes) {
    ProfileEntries entries;
    forEachLine(bytes, [&entries](std::string_view content) { parseLine(content, entries); });
    return entries;
}

std::string formatProfile(const ProfileEntries& entries) {
    std::string bytes;
    for (const auto& [key, value] : entries) {
        bytes += key;
        bytes += '=';
        bytes += value;
        bytes += "\r\n";
    }
    for (char& byte : bytes)
        byte = withBit7(byte);
    return bytes;
}

ProfileFile::ProfileFile(const std::filesystem::path& folder, RegistryProfile& registry,
                         std::string_view fileName, FileSystem& disk, Access access)
    : registry_(registry), disk_(disk), access_(access) {
    load(folder / pathOf(fileName));
}

ProfileFile::~ProfileFile() { save(); }

int ProfileFile::getInt(std::string_view section, std::string_view name, int fallback) {
    std::string key = joinKey(section, ':', name);
    const auto entry = entries_.find(key);
    if (entry != entries_.end()) {
        if (const std::optional<int> value = readInt(entry->second))
            return *value;
    }
    const int value = registry_.getInt(section, name, fallback);
    entries_.insert_or_assign(std::move(key), formatInt(value));
    return value;
}

bool ProfileFile::setInt(std::string_view section, std::string_view name, int value,
                         bool deferSave) {
    enter(joinKey(section, ':', name), formatInt(value));
    return deferSave || save();
}

std::string ProfileFile::getString(std::string_view section, std::string_view name,
                                   std::string_view fallback) {
    std::string key = joinKey(section, '.', name);
    const auto entry = entries_.find(key);
    if (entry != entries_.end())
        return entry->second;
    std::string value = registry_.getString(section, name, fallback);
    entries_.insert_or_assign(std::move(key), value);
    return value;
}

bool ProfileFile::setString(std::string_view section, std::string_view name, std::string_view value,
                            bool deferSave) {
    enter(joinKey(section, '.', name), std::string(value));
    return deferSave || save();
}

void ProfileFile::enter(std::string key, std::string value) {
    const auto [entry, isNew] = entries_.try_emplace(std::move(key), value);
    if (!isNew && entry->second == value)
        return;
    entry->second = std::move(value);
    isUnsaved_ = true;
}

bool ProfileFile::save() {
    if (access_ == Access::Look)  // its owner saves
        return true;
    bool saved = registry_.lasts();
    if (path_.empty())
        saveToRegistry();
    else
        saved = !isProtected() && writeFileAtomically(path_, formatProfile(entries_), disk_);
    isUnsaved_ = !saved;
    trouble_.note(saved ? std::string()
                        : formatText(kFileTexts.settingsNotSaved, {std::string_view(fileName_)}));
    return saved;
}

void ProfileFile::keepSaved(std::int64_t nowMs) {
    constexpr std::int64_t kGatherMs = 500;  // one save for what is set together
    constexpr std::int64_t kRetryMs = 10000;
    if (!isUnsaved_)
        saveAt_.reset();
    else if (!saveAt_)
        saveAt_ = nowMs + kGatherMs;
    else if (nowMs >= *saveAt_)
        saveAt_ = save() ? std::nullopt : std::optional(nowMs + kRetryMs);
}

/// Replacing the file would get around its own write protection, so that is asked first.
bool ProfileFile::isProtected() const {
    std::error_code unknown;
    return std::filesystem::exists(path_, unknown) && !disk_.openForAppending(path_);
}

void ProfileFile::load(const std::filesystem::path& file) {
    fileName_ = textOf(file.filename());
    std::error_code unknown;
    if (access_ == Access::Own && !std::filesystem::exists(file, unknown))
        disk_.openForAppending(file).reset();
    const std::optional<std::string> bytes = readWholeFile(file, kLargestBytes + 1, disk_);
    if (!bytes)
        return;
    path_ = file;
    const bool isTooLarge = bytes->size() > kLargestBytes;
    // Of one too large so little that with all settings it is not so again at the next start.
    const std::size_t counts = isTooLarge ? kLargestBytes / 2 : bytes->size();
    entries_ = parseProfile(std::string_view(*bytes).substr(0, counts));
    if (isTooLarge || isDamaged(*bytes))
        setAside(file, *bytes);
}

void ProfileFile::setAside(const std::filesystem::path& file, const std::string& bytes) {
    // Zeros would count as damage again, and the copy would be lost at the next start.
    std::erase_if(entries_,
                  [](const auto& entry) { return entry.first.find('\0') != std::string::npos; });
    for (auto& [key, value] : entries_)
        std::erase(value, '\0');
    if (access_ == Access::Look)
        return;
    std::filesystem::path copy = file;
    copy += ".damaged";
    const bool isTooLarge = bytes.size() > kLargestBytes;  // to be copied, too
    if (isTooLarge ? disk_.rename(file, copy) : writeFileAtomically(copy, bytes, disk_))
        damagedCopy_ = std::move(copy);
    if (isTooLarge)
        save();
}

void ProfileFile::saveToRegistry() {
    for (const auto& [key, value] : entries_) {
        const std::string_view whole = key;
        if (const std::size_t dot = whole.find('.'); dot != std::string_view::npos) {
            registry_.setString(whole.substr(0, dot), whole.substr(dot + 1), value);
            continue;
        }
        const std::size_t colon = whole.find(':');
        const std::optional<int> number = readInt(value);
        if (colon != std::string_view::npos && number)
            registry_.setInt(whole.substr(0, colon), whole.substr(colon + 1), *number);
    }
}

}  // namespace korvel
