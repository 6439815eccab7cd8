#include "platform/RegistryProfile.h"

#include <cstring>
#include <optional>
#include <windows.h>

namespace korvel {
namespace {

constexpr std::string_view kProgramKey = R"(Software\Tarnwick\Korvel Pro\)";

/// One key per section under the current user; integers are REG_DWORD, texts REG_SZ.
class WindowsRegistryProfile final : public RegistryProfile {
 public:
    int getInt(std::string_view section, std::string_view name, int fallback) override {
        const auto bytes = read(section, name, RRF_RT_REG_DWORD);
        int value = fallback;
        if (bytes && bytes->size() == sizeof value)
            std::memcpy(&value, bytes->data(), sizeof value);
        return value;
    }

    std::string getString(std::string_view section, std::string_view name,
                          std::string_view fallback) override {
        auto bytes = read(section, name, RRF_RT_REG_SZ);
        if (!bytes)
            return std::string(fallback);
        bytes->resize(std::strlen(bytes->c_str()));  // the value's own zero
        return *bytes;
    }

    void setInt(std::string_view section, std::string_view name, int value) override {
        write(section, name, REG_DWORD, &value, sizeof value);
    }

    void setString(std::string_view section, std::string_view name,
                   std::string_view value) override {
        const std::string text(value);
        write(section, name, REG_SZ, text.c_str(), text.size() + 1);
    }

    bool lasts() const override { return true; }

 private:
    static std::string keyOf(std::string_view section) {
        return std::string(kProgramKey) + std::string(section);
    }

    static std::optional<std::string> read(std::string_view section, std::string_view name,
                                           DWORD type) {
        const std::string key = keyOf(section);
        const std::string value(name);
        DWORD size = 0;
        if (RegGetValueA(HKEY_CURRENT_USER, key.c_str(), value.c_str(), type, nullptr, nullptr,
                         &size) != ERROR_SUCCESS)
            return std::nullopt;
        std::string bytes(size, '\0');
        if (RegGetValueA(HKEY_CURRENT_USER, key.c_str(), value.c_str(), type, nullptr, bytes.data(),
                         &size) != ERROR_SUCCESS)
            return std::nullopt;
        bytes.resize(size);
        return bytes;
    }

    /// A value that cannot be stored is lost, as the interface says nothing of failure.
    static void write(std::string_view section, std::string_view name, DWORD type,
                      const void* bytes, std::size_t size) {
        RegSetKeyValueA(HKEY_CURRENT_USER, keyOf(section).c_str(), std::string(name).c_str(), type,
                        bytes, static_cast<DWORD>(size));
    }
};

}  // namespace

std::unique_ptr<RegistryProfile> openRegistryProfile() {
    return std::make_unique<WindowsRegistryProfile>();
}

}  // namespace korvel
