#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/RegistryProfile.h"

namespace korvel {

/// A registry in memory; keys as the profile file writes them.
class FakeRegistry final : public RegistryProfile {
 public:
    int getInt(std::string_view section, std::string_view name, int fallback) override {
        const auto found = ints.find(key(section, ':', name));
        return found == ints.end() ? fallback : found->second;
    }
    std::string getString(std::string_view section, std::string_view name, std::string_view fallback) override {
        const auto found = strings.find(key(section, '.', name));
        return found == strings.end() ? std::string(fallback) : found->second;
    }
    void setInt(std::string_view section, std::string_view name, int value) override {
        ints[key(section, ':', name)] = value;
    }
    void setString(std::string_view section, std::string_view name, std::string_view value) override {
        strings[key(section, '.', name)] = value;
    }

    bool lasts() const override { return true; }

    std::map<std::string, int> ints;
    std::map<std::string, std::string> strings;

 private:
    static std::string key(std::string_view section, char separator, std::string_view name) {
        return std::string(section) + separator + std::string(name);
    }
};

}  // namespace korvel
