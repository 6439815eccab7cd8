#include "exchange/formats/GarminFpl.h"

#include <array>
#include <map>
#include <vector>

#include "base/Ascii.h"
#include "base/AsciiText.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "exchange/XmlText.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr std::size_t kLongestIdent = 12;
constexpr std::size_t kLongestComment = 25;
constexpr std::string_view kUserWaypoint = "USER WAYPOINT";

struct TypeName {
    std::string_view name;
    KindMask kind;
};
constexpr std::array kTypes{TypeName{"AIRPORT", kAirportKind}, TypeName{"VOR", kVorKind},
                            TypeName{"NDB", kNdbKind}, TypeName{"INT", kFixKind},
                            TypeName{"INT-VRP", kFixKind}};

KindMask kindOf(std::string_view type) {
    for (const TypeName& each : kTypes)
        if (each.name == type)
            return each.kind;
    return 0;
}

std::string_view typeOf(const ExportPoint& point) {
    if (point.isOwn)
        return kUserWaypoint;
    for (const TypeName& each : kTypes)
        if (each.kind == point.kind)
            return each.name;
    return kUserWaypoint;
}

struct TableRow {
    std::string ident, type, country;
    ForeignPoint point;
};

std::vector<TableRow> readTable(pugi::xml_node table, std::string& error) {
    std::vector<TableRow> rows;
    eachChild(table, "waypoint", [&](pugi::xml_node node) {
        const auto position = pointOf(childText(node, "lat"), childText(node, "lon"));
        if (!position)
            error = text(kExchangeTexts.badCoordinate);
        TableRow& row = rows.emplace_back();
        row.ident = childText(node, "identifier");
        row.type = childText(node, "type");
        row.country = childText(node, "country-code");
        row.point.ident = row.ident;
        row.point.kinds = kindOf(row.type);
        row.point.isPublished = row.point.kinds != 0;
        row.point.position = position.value_or(GeoPoint{});
        row.point.altitudeFt = wholeNumber(childText(node, "altitude-ft"));
    });
    return rows;
}

/// By identifier and then, where several have it, by type and country.
class Table {
 public:
    explicit Table(std::vector<TableRow> rows) : rows_(std::move(rows)) {
        for (std::size_t i = 0; i < rows_.size(); ++i)
            byIdent_[rows_[i].ident].push_back(i);
    }
    [[nodiscard]] const ForeignPoint* find(pugi::xml_node routePoint) const {
        const auto found = byIdent_.find(childText(routePoint, "waypoint-identifier"));
        if (found == byIdent_.end())
            return nullptr;
        const std::string type = childText(routePoint, "waypoint-type");
        const std::string country = childText(routePoint, "waypoint-country-code");
        const TableRow* best = nullptr;
        int bestScore = -1;
        for (const std::size_t i : found->second) {
            const int score =
                (rows_[i].type == type ? 2 : 0) + (rows_[i].country == country ? 1 : 0);
            if (score > bestScore) {
                best = &rows_[i];
                bestScore = score;
            }
        }
        return &best->point;
    }

 private:
    std::vector<TableRow> rows_;
    std::map<std::string, std::vector<std::size_t>, std::less<>> byIdent_;
};

/// In capitals and without what the schema does not have; `rest` stays as well.
std::string schemaText(std::string_view text, std::string_view rest, std::size_t longest) {
    std::string result;
    for (const char c : inCapitals(toAsciiText(text)))
        if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
            rest.find(c) != std::string_view::npos)
            result += c;
    result.resize(std::min(result.size(), longest));
    return result;
}

/// The identifiers in the file, by point: a waypoint of one's own gets a number where another place
/// has its name already.
std::vector<std::string> schemaIdents(std::span<const ExportPoint> points) {
    std::map<std::string, const ExportPoint*, std::less<>> owners;
    std::vector<std::string> idents;
    for (const ExportPoint& point : points) {
        std::string plain = schemaText(point.ident, "", kLongestIdent);
        if (plain.empty())
            plain = "WPT";
        std::string ident = plain;
        const auto isTaken = [&] {
            const auto owner = owners.find(ident);
            return owner != owners.end() && !SamePoint(owner->second->position, point.position);
        };
        for (int number = 2; point.isOwn && isTaken(); ++number) {
            const std::string suffix = formatInt(number);
            ident = plain.substr(0, kLongestIdent - suffix.size()) + suffix;
        }
        owners.try_emplace(ident, &point);
        idents.push_back(std::move(ident));
    }
    return idents;
}

}  // namespace

ForeignPlan readGarminFpl(const Source& source) {
    ForeignPlan plan;
    const Table table(readTable(childNamed(source.root(), "waypoint-table"), plan.error));
    eachChild(source.root(), "route", [&](pugi::xml_node node) {
        ForeignRoute& route = plan.routes.emplace_back();
        route.name = childText(node, "route-name");
        eachChild(node, "route-point", [&](pugi::xml_node routePoint) {
            if (const ForeignPoint* const point = table.find(routePoint))
                route.points.push_back(*point);
            else if (plan.error.empty())
                plan.error = formatText(kExchangeTexts.notInTable,
                                        {childText(routePoint, "waypoint-identifier")});
        });
    });
    return plan;
}

std::string garminFplOfPlan(std::string_view name, std::span<const ExportPoint> points,
                            std::int64_t createdUnixS) {
    const std::vector<std::string> idents = schemaIdents(points);
    std::string table;
    std::string route;
    std::map<std::string, bool, std::less<>> written;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ExportPoint& point = points[i];
        const std::string type(typeOf(point));
        if (written.try_emplace(idents[i] + '\n' + type, true).second) {
            table +=
                "    <waypoint>\n      <identifier>" + idents[i] + "</identifier>\n      <type>" +
                type + "</type>\n      <country-code></country-code>\n      <lat>" +
                degreesText(point.position.lat) + "</lat>\n      <lon>" +
                degreesText(point.position.lon) + "</lon>\n      <comment>" +
                schemaText(point.name, " /", kLongestComment) + "</comment>\n    </waypoint>\n";
        }
        route += "    <route-point>\n      <waypoint-identifier>" + idents[i] +
                 "</waypoint-identifier>\n      <waypoint-type>" + type +
                 "</waypoint-type>\n      <waypoint-country-code></waypoint-country-code>\n"
                 "    </route-point>\n";
    }
    std::string routeName = schemaText(name, " /", kLongestComment);
    if (routeName.empty())
        routeName = "PLAN";
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<flight-plan xmlns=\"http://www8.garmin.com/xmlschemas/FlightPlan/v1\">\n  <created>" +
           isoUtc(createdUnixS) + "</created>\n  <waypoint-table>\n" + table +
           "  </waypoint-table>\n  <route>\n    <route-name>" + routeName +
           "</route-name>\n    <flight-plan-index>1</flight-plan-index>\n" + route +
           "  </route>\n</flight-plan>\n";
}

}  // namespace korvel
