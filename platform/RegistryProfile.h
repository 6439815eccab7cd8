#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korvel {

/// The per-user application profile under the company key: the fallback store of the settings.
/// Main thread only.
class RegistryProfile {
 public:
    RegistryProfile() = default;
    RegistryProfile(const RegistryProfile&) = delete;
    RegistryProfile& operator=(const RegistryProfile&) = delete;
    virtual ~RegistryProfile() = default;

    virtual int getInt(std::string_view section, std::string_view name, int fallback) = 0;
    virtual std::string getString(std::string_view section, std::string_view name,
                                  std::string_view fallback) = 0;
    virtual void setInt(std::string_view section, std::string_view name, int value) = 0;
    virtual void setString(std::string_view section, std::string_view name,
                           std::string_view value) = 0;
    /// Whether what is set is there in the next run.
    virtual bool lasts() const = 0;
};

/// Where there is no registry, or nothing is to be in it: every value is its fallback.
class NoRegistryProfile : public RegistryProfile {
 public:
    int getInt(std::string_view /*section*/, std::string_view /*name*/, int fallback) override {
        return fallback;
    }
    std::string getString(std::string_view /*section*/, std::string_view /*name*/,
                          std::string_view fallback) override {
        return std::string(fallback);
    }
    void setInt(std::string_view /*section*/, std::string_view /*name*/, int /*value*/) override {}
    void setString(std::string_view /*section*/, std::string_view /*name*/,
                   std::string_view /*value*/) override {}
    bool lasts() const override { return false; }
};

/// The system's own profile: the registry on Windows, unless the program is portable (Folders.h).
/// Elsewhere there is none.
std::unique_ptr<RegistryProfile> openRegistryProfile();

}  // namespace korvel
