#include "platform/RegistryProfile.h"

namespace korvel {

std::unique_ptr<RegistryProfile> openRegistryProfile() {
    return std::make_unique<NoRegistryProfile>();
}

}  // namespace korvel
