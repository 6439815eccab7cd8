#include "compiler/sources/SourceFiles.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/Ascii.h"
#include "compiler/sources/ZipArchive.h"
#include "platform/FileSystem.h"
#include "platform/PathText.h"

namespace korvel {

namespace {

namespace fs = std::filesystem;

/// A year's download is a zip file with one in it; nothing has more.
constexpr int kDeepest = 2;
/// Of a zip file in another one, which is held in memory.
constexpr std::uint64_t kLargestInnerZip = std::uint64_t{1} << 28;
constexpr std::string_view kTable = ".csv";
constexpr std::string_view kPackedTable = ".csv.gz";
constexpr std::string_view kZip = ".zip";

std::string bareName(std::string_view path) {
    return std::string(path.substr(path.find_last_of("/\\") + 1));
}

}  // namespace

SourceFiles SourceFiles::at(const fs::path& place) {
    SourceFiles files;
    std::error_code unknown;
    if (fs::is_directory(place, unknown))
        files.addFolder(place);
    else
        files.addZip(systemFileSystem().openRandomAccess(place), 1);
    return files;
}

SourceFiles SourceFiles::inZip(std::shared_ptr<const RandomAccessFile> zip) {
    SourceFiles files;
    files.addZip(std::move(zip), 1);
    return files;
}

void SourceFiles::addFolder(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> paths;
    for (fs::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error))
        paths.push_back(each->path());
    std::sort(paths.begin(), paths.end());
    for (const auto& [ending, dropped] :
         {std::pair{kTable, std::size_t{0}}, {kPackedTable, std::size_t{3}}})
        for (const fs::path& path : paths) {
            const std::string name = textOf(path.filename());
            if (!endsWithIgnoringCase(name, ending))
                continue;
            const auto size = fs::file_size(path, error);
            files_.push_back({inCapitals(name.substr(0, name.size() - dropped)), name,
                              error ? 0 : size, [path] { return openTextFile(path); }});
        }
    for (const fs::path& path : paths)
        if (endsWithIgnoringCase(textOf(path.filename()), kZip))
            addZip(systemFileSystem().openRandomAccess(path), 1);
}

void SourceFiles::addZip(std::shared_ptr<const RandomAccessFile> zip, int depth) {
    const std::shared_ptr<const ZipArchive> archive = ZipArchive::open(std::move(zip));
    if (!archive)
        return;
    for (const ZipArchive::Entry& entry : archive->entries()) {
        const std::string name = bareName(entry.name);
        if (endsWithIgnoringCase(name, kTable)) {
            files_.push_back({inCapitals(name), name, entry.size,
                              [archive, entry] { return archive->read(entry); }});
        } else if (endsWithIgnoringCase(name, kZip) && depth < kDeepest) {
            if (auto bytes = archive->readWhole(entry, kLargestInnerZip))
                addZip(fileInMemory(std::move(*bytes)), depth + 1);
        }
    }
}

const SourceFiles::File* SourceFiles::find(std::string_view name) const {
    const std::string wanted = inCapitals(name);
    const auto found = std::find_if(files_.begin(), files_.end(),
                                    [&](const File& file) { return file.name == wanted; });
    return found == files_.end() ? nullptr : &*found;
}

}  // namespace korvel
