#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/Consolidation.h"
#include "compiler/NavdbCompiler.h"
#include "compiler/sources/NasrImport.h"
#include "compiler/sources/SourceFiles.h"
#include "compiler/sources/ZipArchive.h"

namespace {

using namespace korvel;

using Importer = std::string (NasrImport::*)(CsvTable);
constexpr Importer kTables[] = {&NasrImport::importAirports,   &NasrImport::importRunways,
                                &NasrImport::importRunwayEnds, &NasrImport::importFrequencies,
                                &NasrImport::importNavaids,    &NasrImport::importFixes,
                                &NasrImport::importGaps,       &NasrImport::importAirways};

/// Unpacks every table of a zip file; none gives more than its directory says.
void unpackAll(std::string bytes) {
    std::vector<char> block(std::size_t{1} << 16);
    const SourceFiles files = SourceFiles::inZip(fileInMemory(std::move(bytes)));
    for (const SourceFiles::File& file : files.all()) {
        const auto source = file.open();
        std::uint64_t size = 0;
        std::ptrdiff_t got = 0;
        while (source && (got = source->read(block)) > 0)
            size += static_cast<std::uint64_t>(got);
        if (size > file.size)
            std::abort();
    }
}

}  // namespace

/// A zip file, or tables separated by 0 bytes, each behind a digit that says which one it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(bytes, bytes + size);
    std::string_view rest = text;
    if (rest.starts_with("PK")) {
        unpackAll(text);
        return 0;
    }
    ImportLog log;
    ImportContext context{log, {}};
    AviationData data;
    NasrImport import(log, data);
    while (!rest.empty()) {
        const auto file = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(file.size() < rest.size() ? file.size() + 1 : file.size());
        const auto kind = file.empty() ? 8U : static_cast<unsigned>(file[0]) - '0';
        if (kind < 8)
            (void)(import.*kTables[kind])(CsvTable("in.csv", openText(file.substr(1)), context));
    }
    consolidate(data, log);
    NavdbHeader header;
    header.expiryYmd = data.cycle ? data.cycle->expiryYmd() : 0;
    if (compileNavdb(data, header, log).size() < kHeaderSize)
        std::abort();
    return 0;
}
