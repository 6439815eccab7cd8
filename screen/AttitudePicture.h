#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/AttitudePage.h"

namespace korvel {

class AttitudeModule;

/// What the attitude plug-in draws, and its memory.
class AttitudePicture {
 public:
    /// Has the page drawn anew. `nowMs` counts from any moment that stays the same. The view is
    /// good until the next call.
    AttitudeView draw(AttitudeModule& module, int width, int height, const MapColorCache& colors,
                      std::int64_t nowMs);

 private:
    std::vector<std::uint32_t> pixels_;
    std::string notice_;
};

}  // namespace korvel
