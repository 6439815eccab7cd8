#include <algorithm>
#include <array>
#include <system_error>
#include <utility>
#include <vector>

#include "compiler/NavdbBuild.h"
#include "compiler/sources/AviationData.h"
#include "compiler/sources/NasrImport.h"
#include "compiler/sources/OurAirportsImport.h"
#include "compiler/sources/SourceFiles.h"
#include "compiler/sources/XPlaneFolder.h"
#include "compiler/sources/XPlaneImport.h"
#include "navdb/DatabaseLoader.h"
#include "platform/PathText.h"

namespace korvel {

namespace {

constexpr std::string_view kOpenError = "File Open Error: ";

struct ImportFile {
    std::string name;
    std::string path;  ///< for messages
    std::function<std::unique_ptr<ByteSource>()> open;
    /// Reads the opened file into the data.
    std::function<std::string(std::string name, std::unique_ptr<ByteSource>, ImportContext&)> read;
    std::uintmax_t size = 0;
};

/// A source that fails as soon as nobody wants the work any more.
class WantedSource : public ByteSource {
 public:
    WantedSource(std::unique_ptr<ByteSource> source, const NavdbBuildOptions& options)
        : source_(std::move(source)), options_(options) {}
    std::ptrdiff_t read(std::span<char> room) override {
        return options_.isBrokenOff() ? -1 : source_->read(room);
    }
    [[nodiscard]] double share() const override { return source_->share(); }

 private:
    const std::unique_ptr<ByteSource> source_;
    const NavdbBuildOptions& options_;
};

/// Reads files one after the other, each taking the share of the progress that its size says.
std::string readAll(const std::vector<ImportFile>& files, const NavdbBuildOptions& options,
                    ImportLog& log, const BuildProgress& progress) {
    std::uintmax_t total = 0;
    for (const ImportFile& file : files)
        total += file.size;
    std::uintmax_t done = 0;
    for (const ImportFile& file : files) {
        auto source = file.open();
        if (!source)
            return std::string(kOpenError) + file.path;
        ImportContext context{log, {}};
        if (progress)
            context.progress = [&](double share) {
                const double bytes =
                    static_cast<double>(done) + share * static_cast<double>(file.size);
                progress(
                    kReadingShare * bytes / static_cast<double>(std::max<std::uintmax_t>(total, 1)),
                    file.name);
            };
        if (auto refused = file.read(
                file.name, std::make_unique<WantedSource>(std::move(source), options), context);
            !refused.empty())
            return refused;
        done += file.size;
    }
    return {};
}

std::vector<ImportFile> xplaneFiles(const NavdbBuildOptions& options, AviationData& data) {
    using Import = std::string (*)(XPlaneFile&, ImportContext&, AviationData&);
    std::vector<ImportFile> files;
    const auto add = [&](const std::filesystem::path& path, Import import) {
        if (path.empty())
            return;
        const auto read = [import, &data](std::string name, std::unique_ptr<ByteSource> source,
                                          ImportContext& context) {
            XPlaneFile file(std::move(name), std::move(source), context);
            auto refused = import(file, context, data);
            const auto& cycle = file.cycle();
            if (cycle && (!data.cycle || cycle->yycc() < data.cycle->yycc()))
                data.cycle = cycle;
            return refused;
        };
        std::error_code error;
        const auto size = std::filesystem::file_size(path, error);
        files.push_back({textOf(path.filename()), textOf(path),
                         [path] { return openTextFile(path); }, read, error ? 0 : size});
    };
    add(options.apt, importXPlaneAirports);
    add(options.nav, importXPlaneNavaids);
    add(options.fix, importXPlaneFixes);
    add(options.awy, importXPlaneAirways);
    return files;
}

/// Tables of one importer, in the order in which they are read; the first one must be there.
template <class Import>
struct Table {
    std::string_view name;
    std::string (Import::*read)(CsvTable);
};

constexpr std::array kOurAirportsTables{
    Table<OurAirportsImport>{"airports.csv", &OurAirportsImport::importAirports},
    Table<OurAirportsImport>{"runways.csv", &OurAirportsImport::importRunways},
    Table<OurAirportsImport>{"airport-frequencies.csv", &OurAirportsImport::importFrequencies},
    Table<OurAirportsImport>{"navaids.csv", &OurAirportsImport::importNavaids}};

constexpr std::array kNasrTables{
    Table<NasrImport>{"APT_BASE.csv", &NasrImport::importAirports},
    Table<NasrImport>{"APT_RWY.csv", &NasrImport::importRunways},
    Table<NasrImport>{"APT_RWY_END.csv", &NasrImport::importRunwayEnds},
    Table<NasrImport>{"FRQ.csv", &NasrImport::importFrequencies},
    Table<NasrImport>{"NAV_BASE.csv", &NasrImport::importNavaids},
    Table<NasrImport>{"FIX_BASE.csv", &NasrImport::importFixes},
    Table<NasrImport>{"AWY_SEG_ALT.csv", &NasrImport::importGaps},
    Table<NasrImport>{"AWY_BASE.csv", &NasrImport::importAirways}};

template <class Import, std::size_t kCount>
std::vector<ImportFile> tablesOf(const std::filesystem::path& place,
                                 const std::array<Table<Import>, kCount>& tables, Import& import) {
    const SourceFiles found = SourceFiles::at(place);
    std::vector<ImportFile> files;
    for (const Table<Import>& table : tables) {
        const SourceFiles::File* const file = found.find(table.name);
        if (file == nullptr && !files.empty())
            continue;
        const auto read = table.read;
        const auto take = [&import, read](std::string name, std::unique_ptr<ByteSource> source,
                                          ImportContext& context) {
            return (import.*read)(CsvTable(std::move(name), std::move(source), context));
        };
        if (file != nullptr)
            files.push_back(
                {file->shown, textOf(place / pathOf(file->shown)), file->open, take, file->size});
        else  // which fails: the airports are needed
            files.push_back({std::string(table.name), textOf(place / pathOf(table.name)),
                             [] { return std::unique_ptr<ByteSource>(); }, take, 0});
    }
    return files;
}

}  // namespace

std::optional<NavdbSource> sourceAt(const std::filesystem::path& place) {
    const SourceFiles found = SourceFiles::at(place);
    if (found.find(kNasrTables.front().name) != nullptr)
        return NavdbSource::Nasr;
    if (found.find(kOurAirportsTables.front().name) != nullptr)
        return NavdbSource::OurAirports;
    const XPlaneFiles xplane = findXPlaneFiles(place);
    if (xplane.apt.empty() && xplane.nav.empty())
        return std::nullopt;
    return NavdbSource::Xplane;
}

std::string_view databaseNameOf(NavdbSource source) {
    return source == NavdbSource::Nasr ? "nasr.ng2" : kBundledDatabaseName;
}

std::string readSources(const NavdbBuildOptions& options, AviationData& data, ImportLog& log,
                        const BuildProgress& progress) {
    OurAirportsImport ourAirports(log, data);
    NasrImport nasr(log, data);
    std::vector<ImportFile> files;
    switch (options.source) {
        case NavdbSource::Xplane:
            files = xplaneFiles(options, data);
            break;
        case NavdbSource::OurAirports:
            files = tablesOf(options.folder, kOurAirportsTables, ourAirports);
            break;
        case NavdbSource::Nasr:
            files = tablesOf(options.folder, kNasrTables, nasr);
            break;
    }
    return files.empty() ? "No input files given." : readAll(files, options, log, progress);
}

}  // namespace korvel
