#include "compiler/sources/AirportIdents.h"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/AsciiText.h"

namespace korvel {

namespace {

std::string codeOf(std::string_view text) {
    return isIdentifier(text) ? std::string(text) : std::string();
}

}  // namespace

void AirportIdents::add(const CsvTable& row) {
    const std::string own = codeOf(row["ident"]);
    const bool isInvented = own.find('-') != std::string::npos;
    rows_.push_back({.codes = {codeOf(row["icao_code"]), isInvented ? std::string() : own,
                               codeOf(row["gps_code"]), codeOf(row["local_code"]), own},
                     .number = "OA" + std::string(row["id"])});
}

void AirportIdents::settle(std::span<SourceAirport> airports, ImportLog& log) const {
    // How often the row has chosen, and the kind of its next choice.
    struct Claim {
        std::size_t row;
        std::size_t kind;
    };
    const auto nextKind = [this](std::size_t row, std::size_t kind) {
        while (kind < kKinds && rows_[row].codes.at(kind).empty())
            ++kind;
        return kind;
    };
    std::vector<Claim> claims;
    for (std::size_t row = 0; row < airports.size(); ++row)
        claims.push_back({row, nextKind(row, 0)});
    std::unordered_map<std::string_view, std::size_t> taken;
    while (!claims.empty()) {
        std::vector<Claim> next;
        for (std::size_t kind = 0; kind <= kKinds; ++kind)
            for (const Claim& claim : claims) {
                if (claim.kind != kind)
                    continue;
                SourceAirport& airport = airports[claim.row];
                if (kind == kKinds) {
                    airport.ident = rows_[claim.row].number;
                    log.took("airports under the table's number");
                } else if (const std::string& code = rows_[claim.row].codes.at(kind);
                           taken.try_emplace(code, claim.row).second) {
                    airport.ident = code;
                } else {
                    next.push_back({claim.row, nextKind(claim.row, kind + 1)});
                }
            }
        claims = std::move(next);
    }
}

}  // namespace korvel
