#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "compiler/Consolidation.h"
#include "compiler/NavdbCompiler.h"
#include "compiler/sources/OurAirportsImport.h"
#include "compiler/sources/XPlaneImport.h"

namespace {

using namespace korvel;

using XPlaneImporter = std::string (*)(XPlaneFile&, ImportContext&, AviationData&);
using CsvImporter = std::string (OurAirportsImport::*)(CsvTable);

constexpr XPlaneImporter kXPlane[] = {importXPlaneAirports, importXPlaneNavaids, importXPlaneFixes,
                                      importXPlaneAirways};
constexpr CsvImporter kCsv[] = {
    &OurAirportsImport::importAirports, &OurAirportsImport::importRunways,
    &OurAirportsImport::importFrequencies, &OurAirportsImport::importNavaids};

}  // namespace

/// Files separated by 0 bytes, each behind a digit that says what it is: 0 to 3 X-Plane's airports,
/// navaids, fixes and airways, 4 to 7 OurAirports' airports, runways, frequencies and navaids. All
/// of them are put together and compiled.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    std::string text(bytes, bytes + size);
    std::string_view rest = text;
    ImportLog log;
    ImportContext context{log, {}};
    AviationData data;
    OurAirportsImport tables(log, data);
    while (!rest.empty()) {
        const auto file = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(file.size() < rest.size() ? file.size() + 1 : file.size());
        const auto kind = file.empty() ? 8U : static_cast<unsigned>(file[0]) - '0';
        if (kind < 4) {
            XPlaneFile source("in.dat", openText(file.substr(1)), context);
            (void)kXPlane[kind](source, context, data);
        } else if (kind < 8) {
            (void)(tables.*kCsv[kind - 4])(CsvTable("in.csv", openText(file.substr(1)), context));
        }
    }
    consolidate(data, log);
    NavdbHeader header;
    header.expiryYmd = data.cycle ? data.cycle->expiryYmd() : 0;
    if (compileNavdb(data, header, log).size() < kHeaderSize || log.summary().size() > 100000)
        std::abort();
    return 0;
}
