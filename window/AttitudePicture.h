#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QElapsedTimer>

#include "pages/AttitudePage.h"

namespace korvel {

class AttitudeModule;

/// What the attitude plug-in draws, and its memory.
class AttitudePicture {
 public:
    AttitudePicture() { since_.start(); }

    /// Has the page drawn anew. The view is good until the next call.
    AttitudeView draw(AttitudeModule& module, int width, int height, const MapColorCache& colors);

 private:
    QElapsedTimer since_;
    std::vector<std::uint32_t> pixels_;
    std::string notice_;
};

}  // namespace korvel
