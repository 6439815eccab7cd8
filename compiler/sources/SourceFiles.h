#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/sources/LineReader.h"
#include "platform/RandomAccessFile.h"

namespace korvel {

/// The tables of a download as they lie on the pilot's disk: in a folder, plain or as .gz, in a zip
/// file, or in zip files inside of a folder or of another zip file. In which folder of a zip file
/// a table lies does not matter.
class SourceFiles {
 public:
    struct File {
        std::string name;  ///< bare, in capitals
        std::string shown;
        std::uint64_t size = 0;                             ///< 0 when it cannot be told
        std::function<std::unique_ptr<ByteSource>()> open;  ///< null when it cannot be opened
    };

    /// Of the folder or the zip file at `place`.
    static SourceFiles at(const std::filesystem::path& place);
    static SourceFiles inZip(std::shared_ptr<const RandomAccessFile> zip);

    /// The table of that name, letters compared without regard to case; null without one. A plain
    /// one counts before a packed one.
    [[nodiscard]] const File* find(std::string_view name) const;
    /// Empty for a folder that cannot be read and for what is no zip file.
    [[nodiscard]] const std::vector<File>& all() const { return files_; }

 private:
    void addFolder(const std::filesystem::path& folder);
    void addZip(std::shared_ptr<const RandomAccessFile> zip, int depth);

    std::vector<File> files_;
};

}  // namespace korvel
