#include "compiler/NavdbBuild.h"

#include <array>
#include <system_error>
#include <utility>
#include <vector>

#include "compiler/Consolidation.h"
#include "compiler/NavdbCompiler.h"
#include "compiler/sources/AviationData.h"
#include "compiler/sources/OurAirportsImport.h"
#include "compiler/sources/XPlaneImport.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {

namespace {

/// Of the whole work, reading takes the greater part.
constexpr double kReadingShare = 0.8;

constexpr std::string_view kOpenError = "File Open Error: ";
constexpr std::string_view kWriteError = "File Write Error: ";

struct InputFile {
    std::filesystem::path path;
    /// Reads the opened file into the data.
    std::function<std::string(std::string name, std::unique_ptr<ByteSource>, ImportContext&)> read;
    std::uintmax_t size = 0;
};

/// Reads files one after the other, each taking the share of the progress that its size says.
std::string readAll(std::vector<InputFile>& files, ImportLog& log, const BuildProgress& progress) {
    std::uintmax_t total = 0;
    for (InputFile& file : files) {
        std::error_code error;
        const auto size = std::filesystem::file_size(file.path, error);
        file.size = error ? 0 : size;
        total += file.size;
    }
    std::uintmax_t done = 0;
    for (const InputFile& file : files) {
        const std::string name = textOf(file.path.filename());
        auto source = openTextFile(file.path);
        if (!source)
            return std::string(kOpenError) + textOf(file.path);
        ImportContext context{log, {}};
        if (progress)
            context.progress = [&](double share) {
                const double bytes =
                    static_cast<double>(done) + share * static_cast<double>(file.size);
                progress(kReadingShare * bytes / static_cast<double>(total), name);
            };
        if (auto refused = file.read(name, std::move(source), context); !refused.empty())
            return refused;
        done += file.size;
    }
    return {};
}

std::vector<InputFile> xplaneFiles(const NavdbBuildOptions& options, AviationData& data) {
    using Import = std::string (*)(XPlaneFile&, ImportContext&, AviationData&);
    std::vector<InputFile> files;
    const auto add = [&](const std::filesystem::path& path, Import import) {
        if (path.empty())
            return;
        files.push_back({path, [import, &data](std::string name, std::unique_ptr<ByteSource> source,
                                               ImportContext& context) {
                             XPlaneFile file(std::move(name), std::move(source), context);
                             auto refused = import(file, context, data);
                             const auto& cycle = file.cycle();
                             if (cycle && (!data.cycle || cycle->yycc() < data.cycle->yycc()))
                                 data.cycle = cycle;
                             return refused;
                         }});
    };
    add(options.apt, importXPlaneAirports);
    add(options.nav, importXPlaneNavaids);
    add(options.fix, importXPlaneFixes);
    add(options.awy, importXPlaneAirways);
    return files;
}

bool isThere(const std::filesystem::path& path) {
    std::error_code unknown;
    return std::filesystem::exists(path, unknown);
}

std::vector<InputFile> ourAirportsFiles(const NavdbBuildOptions& options,
                                        OurAirportsImport& import) {
    using Import = std::string (OurAirportsImport::*)(CsvTable);
    std::vector<InputFile> files;
    const auto add = [&](const std::string& name, bool needed, Import table) {
        std::filesystem::path path = options.folder / pathOf(name);
        std::filesystem::path packed = path;
        packed += ".gz";
        if (!isThere(path) && isThere(packed))
            path = std::move(packed);
        if (!needed && !isThere(path))
            return;
        files.push_back(
            {path, [&import, table](std::string csvName, std::unique_ptr<ByteSource> source,
                                    ImportContext& context) {
                 return (import.*table)(CsvTable(std::move(csvName), std::move(source), context));
             }});
    };
    add("airports.csv", true, &OurAirportsImport::importAirports);
    add("runways.csv", false, &OurAirportsImport::importRunways);
    add("airport-frequencies.csv", false, &OurAirportsImport::importFrequencies);
    add("navaids.csv", false, &OurAirportsImport::importNavaids);
    return files;
}

void report(const BuildProgress& progress, double share, std::string_view what) {
    if (progress)
        progress(share, what);
}

}  // namespace

std::string readSources(const NavdbBuildOptions& options, AviationData& data, ImportLog& log,
                        const BuildProgress& progress) {
    OurAirportsImport ourAirports(log, data);
    auto files = options.source == NavdbSource::Xplane ? xplaneFiles(options, data)
                                                       : ourAirportsFiles(options, ourAirports);
    return files.empty() ? "No input files given." : readAll(files, log, progress);
}

std::string writeDatabase(const AviationData& data, const NavdbBuildOptions& options,
                          ImportLog& log, const BuildProgress& progress) {
    report(progress, 0.85, "laying out");
    NavdbHeader header;
    header.region = options.region;
    header.expiryYmd = options.expiryYmd.value_or(data.cycle ? data.cycle->expiryYmd() : 0);
    header.dataCycleYycc = data.cycle ? data.cycle->yycc() : 0;
    const std::string bytes = compileNavdb(data, header, log);
    report(progress, 0.95, "writing");
    if (!writeFileAtomically(options.output, bytes))
        return std::string(kWriteError) + textOf(options.output);
    report(progress, 1.0, "done");
    return {};
}

std::string buildNavdb(const NavdbBuildOptions& options, ImportLog& log,
                       const BuildProgress& progress) {
    AviationData data;
    if (auto refused = readSources(options, data, log, progress); !refused.empty())
        return refused;
    report(progress, kReadingShare, "sorting");
    consolidate(data, log);
    return writeDatabase(data, options, log, progress);
}

}  // namespace korvel
