#pragma once

#include <functional>
#include <string>
#include <utility>

#include "tools/Invocation.h"

namespace korvel {

class Canvas;

/// What every picture needs.
struct PictureOptions {
    std::string size;
    int page = 0;
    std::string scheme;
    std::string output;

    void declare(CLI::App& app);
    /// Width and height.
    std::pair<int, int> pixels() const;
    /// Writes what `paint` draws, as PNG into a file with that name's ending, else as SVG, and ends
    /// the verb.
    int write(const Invocation& call, const std::function<void(Canvas&)>& paint) const;
};

/// Texts are as on the command line; an empty one is absent.
struct HsiOptions {
    PictureOptions picture;
    std::string heading;
    std::string course;
    std::string bearing;
    std::string deviation;
    int toFrom = 0;
    int labelHeight = 20;

    void declare(CLI::App& app);
};

int drawHsi(const Invocation& call, const HsiOptions& options);

/// Texts are as on the command line; an empty one is absent.
struct ProfileOptions {
    PictureOptions picture;
    std::string plan;
    std::string altitude;

    void declare(CLI::App& app);
};

int drawProfile(const Invocation& call, const ProfileOptions& options);

}  // namespace korvel
