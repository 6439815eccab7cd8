#include "platform/RegistryProfile.h"

#include <windows.h>

#include "platform/Folders.h"
#include "platform/win32/WideText.h"

namespace korvel {
namespace {

constexpr std::wstring_view kProgramKey = LR"(Software\Tarnwick\Korvel Pro\)";

/// One key per section under the current user; integers are REG_DWORD, texts REG_SZ.
class WindowsRegistryProfile final : public RegistryProfile {
 public:
    int getInt(std::string_view section, std::string_view name, int fallback) override {
        int value = 0;
        DWORD size = sizeof value;
        return read(section, name, RRF_RT_REG_DWORD, &value, size) ? value : fallback;
    }

    std::string getString(std::string_view section, std::string_view name,
                          std::string_view fallback) override {
        DWORD size = 0;
        if (!read(section, name, RRF_RT_REG_SZ, nullptr, size))
            return std::string(fallback);
        std::wstring text(size / sizeof(wchar_t), L'\0');
        if (!read(section, name, RRF_RT_REG_SZ, text.data(), size))
            return std::string(fallback);
        return narrowText(text.c_str());  // up to the value's own zero
    }

    void setInt(std::string_view section, std::string_view name, int value) override {
        write(section, name, REG_DWORD, &value, sizeof value);
    }

    void setString(std::string_view section, std::string_view name,
                   std::string_view value) override {
        const std::wstring text = wideText(value);
        write(section, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

    bool lasts() const override { return true; }

 private:
    static std::wstring keyOf(std::string_view section) {
        return std::wstring(kProgramKey) + wideText(section);
    }

    /// `size` is the room that there is at `into`, and then how much the value takes.
    static bool read(std::string_view section, std::string_view name, DWORD type, void* into,
                     DWORD& size) {
        return RegGetValueW(HKEY_CURRENT_USER, keyOf(section).c_str(), wideText(name).c_str(), type,
                            nullptr, into, &size) == ERROR_SUCCESS;
    }

    /// A value that cannot be stored is lost, as the interface says nothing of failure.
    static void write(std::string_view section, std::string_view name, DWORD type,
                      const void* bytes, std::size_t size) {
        RegSetKeyValueW(HKEY_CURRENT_USER, keyOf(section).c_str(), wideText(name).c_str(), type,
                        bytes, static_cast<DWORD>(size));
    }
};

}  // namespace

std::unique_ptr<RegistryProfile> openRegistryProfile() {
    if (isPortable())
        return std::make_unique<NoRegistryProfile>();
    return std::make_unique<WindowsRegistryProfile>();
}

}  // namespace korvel
