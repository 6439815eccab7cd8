#include "compiler/sources/TownsImport.h"

#include <string_view>
#include <utility>

#include "base/AsciiText.h"

namespace korvel {
namespace {

constexpr std::string_view kCity = "12";
constexpr std::string_view kTown = "13";

}  // namespace

std::string importTowns(const std::string& name, std::unique_ptr<ByteSource> source,
                        ImportContext& context, std::vector<SourceTown>& towns) {
    LineReader lines(std::move(source));
    std::string_view line;
    Fields fields;
    while (lines.next(line)) {
        fields.split(line);
        if (fields[0] != kCity && fields[0] != kTown)
            continue;
        const auto lat = latitudeDeg(fields[1]);
        const auto lon = longitudeDeg(fields[2]);
        std::string town = toAsciiText(fields.from(3));
        if (lat && lon && !town.empty())
            towns.push_back(
                {.name = std::move(town), .position = {*lat, *lon}, .isCity = fields[0] == kCity});
        else
            context.log.malformed(name, lines.number(), "town without position or name");
    }
    return lines.failed() ? name + ": cannot be read" : std::string();
}

}  // namespace korvel
