#include "compiler/NavdbBuild.h"

#include "compiler/Consolidation.h"
#include "compiler/NavdbCompiler.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {

namespace {

constexpr char kUnitedStatesRegion = 'K';
constexpr std::string_view kWriteError = "File Write Error: ";

void report(const BuildProgress& progress, double share, std::string_view what) {
    if (progress)
        progress(share, what);
}

}  // namespace

std::string writeDatabase(const AviationData& data, const NavdbBuildOptions& options,
                          ImportLog& log, const BuildProgress& progress) {
    report(progress, 0.85, "laying out");
    NavdbHeader header;
    header.region = options.region.value_or(
        options.source == NavdbSource::Nasr ? kUnitedStatesRegion : kWorldRegion);
    header.expiryYmd = options.expiryYmd.value_or(data.cycle ? data.cycle->expiryYmd() : 0);
    header.dataCycleYycc = data.cycle ? data.cycle->yycc() : 0;
    const std::string bytes = compileNavdb(data, header, log);
    if (options.isBrokenOff())
        return std::string(kBuildBrokenOff);
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
        return options.isBrokenOff() ? std::string(kBuildBrokenOff) : refused;
    report(progress, kReadingShare, "sorting");
    consolidate(data, log);
    return writeDatabase(data, options, log, progress);
}

}  // namespace korvel
