#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/TextNumbers.h"
#include "config/ProfileFile.h"
#include "config/Settings.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "platform/RegistryProfile.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOpenError = "File Open Error";

using Words = std::vector<std::string>;  ///< section, name, default or value

struct Action {
    std::string_view name;
    std::size_t argumentCount;
    int (*run)(const Invocation& call, ProfileFile& profile, const Words& words);
};

std::string errorFor(std::string_view message, const fs::path& file) {
    return std::string(message) + ": " + textOf(file);
}

int saved(const Invocation& call, ProfileFile& profile, const Json& value) {
    if (!profile.save())
        return call.fail(errorFor("File Write Error", profile.path()));
    return call.done({{"value", value}}, "");
}

int getInt(const Invocation& call, ProfileFile& profile, const Words& words) {
    const int value = profile.getInt(words[0], words[1], toInt(words[2]));
    return call.done({{"value", value}}, formatInt(value) + "\n");
}

int getString(const Invocation& call, ProfileFile& profile, const Words& words) {
    const std::string value = profile.getString(words[0], words[1], words[2]);
    return call.done({{"value", value}}, value + "\n");
}

int setInt(const Invocation& call, ProfileFile& profile, const Words& words) {
    const int value = toInt(words[2]);
    profile.setInt(words[0], words[1], value, true);
    return saved(call, profile, value);
}

int setString(const Invocation& call, ProfileFile& profile, const Words& words) {
    profile.setString(words[0], words[1], words[2], true);
    return saved(call, profile, words[2]);
}

int settings(const Invocation& call, ProfileFile& profile, const Words& /*words*/) {
    const Settings loaded = loadSettings(profile);
    Json values = Json::object();
    std::string plain;
    for (const SettingInfo& setting : settingsTable()) {
        const SettingValue value = setting.valueIn(loaded);
        const std::string key(setting.key);
        const auto* number = std::get_if<int>(&value);
        const std::string text =
            number != nullptr ? formatInt(*number) : std::get<std::string>(value);
        values[key] = number != nullptr ? Json(*number) : Json(text);
        plain.append(key).append("=").append(text).append("\n");
    }
    return call.done({{"settings", values}}, plain);
}

constexpr std::array kActions = {
    Action{"get-int", 3, getInt},    Action{"get-string", 3, getString},
    Action{"set-int", 3, setInt},    Action{"set-string", 3, setString},
    Action{"settings", 0, settings},
};

/// Lists what the file holds and leaves it untouched.
int listEntries(const Invocation& call, const fs::path& file) {
    const std::optional<std::string> bytes = readWholeFile(file);
    if (!bytes)
        return call.fail(errorFor(kOpenError, file));
    Json entries = Json::object();
    std::string plain;
    for (const auto& [key, value] : parseProfile(*bytes)) {
        entries[key] = value;
        plain.append(key).append("=").append(value).append("\n");
    }
    return call.done({{"entries", entries}}, plain);
}

}  // namespace

int runProfile(Invocation& call) {
    std::string file;
    std::string name;
    Words words;
    call.options().add_option("file", file, "The settings file")->required();
    call.options().add_option("action", name,
                              "get-int, get-string, set-int, set-string or settings; without one "
                              "the entries are listed");
    call.options().add_option("words", words, "SECTION NAME DEFAULT, or SECTION NAME VALUE");
    call.parse();
    if (name.empty())
        return listEntries(call, pathOf(file));

    const auto* action = std::ranges::find(kActions, name, &Action::name);
    if (action == kActions.end())
        usageError("Unknown action: " + name);
    if (words.size() != action->argumentCount) {
        usageError(name + " takes " + formatInt(static_cast<int>(action->argumentCount)) +
                   " words");
    }
    if (name.ends_with("-int"))
        toInt(words[2]);  // complain before a missing file is created
    const fs::path path = pathOf(file);
    const std::unique_ptr<RegistryProfile> registry = openRegistryProfile();
    ProfileFile profile(path.parent_path(), *registry, textOf(path.filename()));
    if (profile.path().empty())
        return call.fail(errorFor(kOpenError, path));
    return action->run(call, profile, words);
}

}  // namespace korvel
