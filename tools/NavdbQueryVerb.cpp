#include "tools/NavdbQueryVerb.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/file/DatabaseVerify.h"
#include "navdb/records/AirportRecord.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/LoadedDatabase.h"
#include "tools/RecordJson.h"

namespace korvel {
namespace {

Json tablesJson(const DatabaseDirectory& directory) {
    Json tables = Json::array();
    for (const auto& table : directory.tables()) {
        Json fields = Json::array();
        for (const FieldEntry& field : table->fields) {
            fields.push_back({{"name", unpackName(field.name)},
                              {"type", static_cast<std::uint32_t>(field.type)},
                              {"length", field.length}});
        }
        tables.push_back(
            {{"name", unpackName(table->name)}, {"rowSize", table->rowSize}, {"fields", fields}});
    }
    return tables;
}

Json indexesJson(const DatabaseDirectory& directory) {
    Json indexes = Json::array();
    for (const IndexEntry& index : directory.indexes()) {
        indexes.push_back({{"name", unpackName(index.name)},
                           {"table", unpackName(index.table->name)},
                           {"rows", index.rowCount()}});
    }
    return indexes;
}

Json valueJson(const FieldValue& value) {
    if (const auto* integer = std::get_if<std::int32_t>(&value.content))
        return *integer;
    if (const auto* number = std::get_if<double>(&value.content))
        return *number;
    return value.print();
}

void printRow(const FieldMap& fields, bool asJson) {
    if (asJson) {
        Json json = Json::object();
        for (const auto& [name, value] : fields)
            json[name] = valueJson(value);
        Invocation::printJson(json);
        return;
    }
    std::string line;
    for (const auto& [name, value] : fields)
        line += name + "=" + value.print() + "  ";
    std::cout << line << '\n';
}

/// Prints the rows of an index, those of a key where it is ordered by one; returns how many.
int printRows(const DatabaseFile& file, const IndexEntry& index,
              const std::optional<std::string>& key, bool asJson) {
    const FieldEntry* const order = key ? orderingField(index) : nullptr;
    const auto rows = file.rows();
    FieldMap fields;
    int count = 0;
    std::uint32_t row = order != nullptr ? rows->firstNotBelow(index, *order, *key) : 0;
    for (; row < index.rowCount(); ++row, ++count) {
        if ((order != nullptr && !rows->equals(index, row, *order, *key)) ||
            !rows->load(index, row))
            break;
        rows->decode(fields);
        printRow(fields, asJson);
    }
    return count;
}

KindMask kindsFrom(const std::string& letter) {
    for (const KindMask kind : {kAirportKind, kVorKind, kNdbKind, kFixKind})
        if (letter == std::string(1, kindLetter(kind)))
            return kind;
    return kAllKinds;
}

}  // namespace

NavdbQueryVerb::NavdbQueryVerb(Invocation& call) {
    call.declareNow();
    const auto add = [&](const char* name, const char* summary,
                         int (NavdbQueryVerb::*action)(const Invocation&) const) {
        CLI::App* const command = call.options().add_subcommand(name, summary);
        command->fallthrough();  // "--json" and "--now" may stand behind the action as well
        actions_.push_back({command, action});
        return command;
    };
    const auto addFile = [&](CLI::App* command) {
        command->add_option("file", file_, "The database file")->required();
    };
    addFile(add("info", "What a file says about itself", &NavdbQueryVerb::info));
    addFile(add("verify", "Check a whole file", &NavdbQueryVerb::verify));

    CLI::App* const rows = add("rows", "The rows of an index", &NavdbQueryVerb::rows);
    addFile(rows);
    rows->add_option("index", index_, "The index, for example AptKey")->required();
    keyOption_ = rows->add_option("--key", key_, "Only the rows of this key");

    CLI::App* const find = add("find", "One place by its key", &NavdbQueryVerb::find);
    find->add_option("key", key_, "A key (v.OAK) or an identifier")->required();
    find->add_option("--near", near_, "LAT,LON: the nearest of equally named places");

    CLI::App* const nearest = add("nearest", "Places near a position", &NavdbQueryVerb::nearest);
    nearest->add_option("position", near_, "LAT,LON")->required();
    nearest->add_option("--kind", kind_, "a, v, n or f: only airports, VORs, NDBs or fixes")
        ->check(CLI::IsMember({"a", "v", "n", "f"}));
    nearest->add_option("--count", count_, "How many at most, 20");
    nearest->add_option("--within", within_, "Nautical miles");

    add("airway", "The routes of an airway", &NavdbQueryVerb::airway)
        ->add_option("name", key_, "The airway's name")
        ->required();
}

int NavdbQueryVerb::run(const Invocation& call) const {
    const auto wanted = std::find_if(actions_.begin(), actions_.end(),
                                     [](const Action& action) { return action.command->parsed(); });
    if (wanted == actions_.end())
        usageError("No action");
    return (this->*wanted->run)(call);
}

int NavdbQueryVerb::info(const Invocation& call) const {
    DatabaseFile file;
    if (const auto error = file.Open(pathOf(file_), call.clock()); !error.empty())
        return call.fail(error);
    const DatabaseHeader& header = file.header();
    const std::string region = file.regionLetter() == 0 ? "" : std::string(1, file.regionLetter());
    const Json json{{"error", ""},
                    {"version", header.version},
                    {"region", region},
                    {"expiry", header.expiry},
                    {"expired", file.isExpired()},
                    {"coverage", {header.southernCoverageDeg, header.northernCoverageDeg}},
                    {"tables", tablesJson(file.directory())},
                    {"indexes", indexesJson(file.directory())}};
    std::string plain = header.version + ", region " + (region.empty() ? "none" : region) +
                        ", expires " + formatInt(header.expiry) +
                        (file.isExpired() ? " (out of date)\n" : "\n");
    for (const Json& index : json["indexes"]) {
        plain += index["name"].get<std::string>() + ": " +
                 formatInt(index["rows"].get<std::uint32_t>()) + " rows of " +
                 index["table"].get<std::string>() + "\n";
    }
    return call.done(json, plain);
}

int NavdbQueryVerb::verify(const Invocation& call) const {
    const std::string error = verifyDatabase(pathOf(file_), call.clock());
    return error.empty() ? call.done({{"error", ""}}, "All is well\n") : call.fail(error);
}

int NavdbQueryVerb::rows(const Invocation& call) const {
    DatabaseFile file;
    if (const auto error = file.Open(pathOf(file_), call.clock()); !error.empty())
        return call.fail(error);
    const IndexEntry* const index = file.index(index_);
    if (index == nullptr)
        return call.fail("No index " + index_);
    const bool hasKey = keyOption_->count() > 0;
    const int count =
        printRows(file, *index, hasKey ? std::optional(key_) : std::nullopt, call.json());
    return count == 0 && hasKey ? call.fail(key_ + " not found") : kExitDone;
}

int NavdbQueryVerb::find(const Invocation& call) const {
    std::optional<GeoPoint> near;
    if (!near_.empty())
        near = toPosition(near_);
    LoadedDatabase loaded(call);
    const DatabaseRecord* const found = loaded.database.Find(key_, near);
    if (found == nullptr)
        return call.fail(key_ + " navaid not found!");
    const auto record = loaded.withDetails(*found);
    return call.done(recordJson(*record), recordLine(*record) + "\n" + recordDetails(*record));
}

int NavdbQueryVerb::nearest(const Invocation& call) const {
    const GeoPoint here = toPosition(near_);
    const int count = toInt(count_);
    const double within = within_.empty() ? kHalfwayRoundNm : toNumber(within_);
    if (count < 0 || within < 0)
        usageError("--count and --within cannot be negative");
    LoadedDatabase loaded(call);
    const auto found =
        loaded.database.nearest(here, kindsFrom(kind_), static_cast<std::size_t>(count), within);
    for (const auto& [place, distanceNm] : found) {
        const auto bare = loaded.database.recordOf(place);
        if (bare == nullptr)
            continue;
        const auto record = loaded.withDetails(*bare);
        const double bearing = TrueCourseDeg(here, record->position);
        if (call.json()) {
            Json json = recordJson(*record);
            json["distanceNm"] = distanceNm;
            json["bearingTrue"] = bearing;
            Invocation::printJson(json);
        } else {
            std::cout << formatFixed(distanceNm, 1) << " nm  " << formatFixed(bearing, 0) << "  "
                      << recordLine(*record) << '\n';
        }
    }
    return found.empty() ? call.fail("No place found") : kExitDone;
}

int NavdbQueryVerb::airway(const Invocation& call) const {
    LoadedDatabase loaded(call);
    std::vector<std::string> routes;
    loaded.database.GetAirwayRoutes(key_, routes);
    if (routes.empty())
        return call.fail(key_ + " navaid/airway not found or data expired!");
    std::string plain;
    for (const std::string& route : routes)
        plain += route + "\n";
    return call.done({{"routes", routes}}, plain);
}

}  // namespace korvel
