#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "ground/airspace/Airspace.h"
#include "platform/FileSystem.h"

namespace korvel {

/// All airspaces of some folders, and which of them lie where.
class AirspaceSet {
 public:
    /// Takes the place of what was there. Every file that looks like OpenAir is read, whatever it
    /// is called; the folders' earlier files come first.
    void load(std::span<const std::filesystem::path> folders,
              FileSystem& disk = systemFileSystem());
    /// The same of airspaces that were read already.
    void assign(std::vector<Airspace> airspaces);

    /// Takes the place of what was there with what another one has loaded.
    void takeOver(AirspaceSet&& loaded);

    [[nodiscard]] std::span<const Airspace> all() const { return airspaces_; }
    /// Places in all() of those whose boxes touch this one, in their order.
    [[nodiscard]] std::vector<std::size_t> touching(const AirspaceBox& box) const;
    /// Of those above or below a point, lowest floor first.
    [[nodiscard]] std::vector<std::size_t> at(GeoPoint point) const;

    /// A file that was read.
    struct File {
        std::string name;
        std::size_t airspaces = 0;
    };
    [[nodiscard]] std::span<const File> files() const { return files_; }
    /// "FILE line N: what", of what was left out.
    [[nodiscard]] std::span<const std::string> problems() const { return problems_; }
    /// Grows with each loading.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }

 private:
    std::vector<Airspace> airspaces_;
    std::vector<AirspaceBox> boxes_;
    std::vector<File> files_;
    std::vector<std::string> problems_;
    std::uint64_t revision_ = 0;
};

}  // namespace korvel
