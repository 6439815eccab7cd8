#include "platform/RegistryProfile.h"

namespace korvel {
namespace {

/// There is no registry here: every value is its fallback.
class NoRegistryProfile final : public RegistryProfile {
 public:
    int getInt(std::string_view, std::string_view, int fallback) override { return fallback; }
    std::string getString(std::string_view, std::string_view, std::string_view fallback) override {
        return std::string(fallback);
    }
    void setInt(std::string_view, std::string_view, int) override {}
    void setString(std::string_view, std::string_view, std::string_view) override {}
    bool lasts() const override { return false; }
};

}  // namespace

std::unique_ptr<RegistryProfile> openRegistryProfile() {
    return std::make_unique<NoRegistryProfile>();
}

}  // namespace korvel
