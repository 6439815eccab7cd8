#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "compiler/sources/XPlaneImport.h"

namespace korvel {

namespace {

constexpr int kNdb = 2;
constexpr int kVor = 3;
constexpr int kFirstIlsPart = 4;
constexpr int kLastIlsPart = 9;
constexpr int kPairedDme = 12;
constexpr int kLoneDme = 13;
constexpr int kFirstWithRegions = 1100;

/// Splits the station type off the end of a name: "SEATTLE VORTAC" gives the name "SEATTLE".
std::string_view takeType(std::string_view& name) {
    constexpr std::array kTypes{
        std::string_view{"NDB"},     std::string_view{"NDB-DME"}, std::string_view{"NDB/DME"},
        std::string_view{"LOM"},     std::string_view{"VOR"},     std::string_view{"VOR-DME"},
        std::string_view{"VOR/DME"}, std::string_view{"VORTAC"},  std::string_view{"VOT"},
        std::string_view{"DME"},     std::string_view{"TACAN"},   std::string_view{"DME-ILS"}};
    const auto space = name.find_last_of(" \t");
    const auto last = space == std::string_view::npos ? name : name.substr(space + 1);
    if (std::find(kTypes.begin(), kTypes.end(), last) == kTypes.end())
        return {};
    name = space == std::string_view::npos ? std::string_view{} : trimmed(name.substr(0, space));
    return last;
}

NavaidKind kindOf(int row, std::string_view type) {
    const bool withDme = type.find("DME") != std::string_view::npos;
    if (row == kNdb)
        return withDme ? NavaidKind::NdbDme : NavaidKind::Ndb;
    if (row != kVor)
        return NavaidKind::DmeOnly;
    if (type == "VORTAC" || type == "TACAN")
        return NavaidKind::Vortac;
    return withDme ? NavaidKind::VorDme : NavaidKind::Vor;
}

/// The service volume says what a station is for: short-range ones serve one airport, long-range
/// ones stand on the charts of both levels.
Usage usageOf(int row, double rangeNm) {
    const double terminal = row == kNdb ? 15.0 : 25.0;
    const double high = row == kNdb ? 75.0 : 100.0;
    if (rangeNm <= terminal)
        return kUsageTerminal;
    return rangeNm < high ? kUsageLow : kUsageBoth;
}

/// One line of the file; empty or why it is malformed.
std::string_view readNavaid(const Fields& fields, int row, int version, SourceNavaid& navaid) {
    const auto lat = latitudeDeg(fields[1]);
    const auto lon = longitudeDeg(fields[2]);
    if (!lat || !lon)
        return "latitude or longitude missing or out of range";
    const auto frequency = wholeDouble(fields[4]);
    const auto range = wholeDouble(fields[5]);
    const auto variation = wholeDouble(fields[6]);
    if (!frequency || !range || !variation)
        return "frequency, range or variation is not a number";
    // VHF stations are given in 10 kHz.
    navaid.frequency = row == kNdb ? *frequency : *frequency / 100.0;
    const bool inBand = row == kNdb ? *frequency >= 100.0 && *frequency < 2000.0
                                    : navaid.frequency >= 108.0 && navaid.frequency < 136.0;
    if (!inBand)
        return "frequency out of range";
    if (!isIdentifier(fields[7]))
        return "identifier missing or not usable";
    navaid.ident = fields[7];
    navaid.position = {*lat, *lon};
    navaid.usage = usageOf(row, *range);
    if (row == kVor && std::abs(*variation) <= 180.0)
        navaid.variation = *variation;
    const bool withRegion = version >= kFirstWithRegions;
    if (withRegion)
        navaid.region = fields[9];
    auto name = fields.from(withRegion ? 10 : 8);
    navaid.kind = kindOf(row, takeType(name));
    navaid.name = toAsciiText(name);
    return {};
}

}  // namespace

std::string importXPlaneNavaids(XPlaneFile& file, ImportContext& context, AviationData& data) {
    if (auto refused = file.readHeader(810, 1299); !refused.empty())
        return refused;
    Fields fields;
    while (file.next(fields)) {
        const auto row = wholeInt(fields[0]);
        if (!row) {
            file.malformed("row code missing");
        } else if (*row == kNdb || *row == kVor || *row == kPairedDme || *row == kLoneDme) {
            if (fields[fields.size() - 1] == "DME-ILS") {
                context.log.leftOut("parts of instrument landing systems");
            } else if (fields[fields.size() - 1] == "VOT") {
                context.log.leftOut("VOR test stations");
            } else {
                SourceNavaid navaid;
                const auto reason = readNavaid(fields, *row, file.version(), navaid);
                if (reason.empty())
                    data.navaids.push_back(std::move(navaid));
                else
                    file.malformed(reason);
            }
        } else if (*row >= kFirstIlsPart && *row <= kLastIlsPart) {
            context.log.leftOut("parts of instrument landing systems");
        } else {
            context.log.leftOut("navaid rows of other kinds");
        }
    }
    return file.failure();
}

}  // namespace korvel
