#include "tools/NavdbBuildVerb.h"

#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/NavdbBuild.h"
#include "compiler/sources/AiracCycle.h"
#include "compiler/sources/XPlaneFolder.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/ProgressBar.h"

namespace korvel {
namespace {

constexpr std::string_view kOurAirports = "ourairports";
constexpr std::string_view kNasr = "nasr";

Json countsOf(const ImportLog::Counts& counts) {
    Json json = Json::object();
    for (const auto& [what, count] : counts)
        json[what] = count;
    return json;
}

std::optional<char> regionFrom(const std::string& text) {
    if (text.empty())
        return std::nullopt;
    const bool isLetter = (text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z');
    if (text.size() != 1 || !isLetter)
        usageError("--region takes one letter");
    return text[0];
}

std::optional<int> expiryFrom(const std::string& text) {
    if (text.empty())
        return std::nullopt;
    const int ymd = toInt(text);
    if (!isDateYmd(ymd))
        usageError("--expiry takes a date, YYYYMMDD");
    return ymd;
}

/// Where the pilot's own database goes that is used beside or in the place of the bundled one.
std::filesystem::path ownDatabase(NavdbSource source) {
    const std::filesystem::path folder = documentsFolder();
    if (folder.empty())
        usageError("there is no documents folder: name the database to write with -o");
    return folder / databaseNameOf(source);
}

}  // namespace

NavdbBuildVerb::NavdbBuildVerb(CLI::App& verb)
    : command_(verb.add_subcommand("build", "Compile a database from open data")) {
    command_->fallthrough();  // "--json" may stand behind the action as well
    command_->add_option("--from", from_, "Where the data comes from")
        ->required()
        ->check(CLI::IsMember(
            std::vector<std::string>{"xplane", std::string(kOurAirports), std::string(kNasr)}));
    command_->add_option("--apt", apt_, "X-Plane's apt.dat, plain or .gz");
    command_->add_option("--nav", nav_, "X-Plane's nav.dat or earth_nav.dat");
    command_->add_option("--fix", fix_, "X-Plane's fix.dat or earth_fix.dat");
    command_->add_option("--awy", awy_, "X-Plane's awy.dat or earth_awy.dat");
    command_->add_option(
        "--dir", folder_,
        "Folder or zip of OurAirports' or NASR's CSV files, or X-Plane's own folder");
    command_->add_option("-o", output_,
                         "The database to write; without it the one in the documents folder that "
                         "replaces the bundled one or, of nasr, stands beside it");
    command_->add_option("--region", region_, "ICAO region letter, K for the United States");
    command_->add_option("--expiry", expiry_, "Expiry date, YYYYMMDD");
}

int NavdbBuildVerb::run(const Invocation& call) const {
    NavdbBuildOptions options;
    const bool csv = from_ == kOurAirports || from_ == kNasr;
    options.source = from_ == kNasr ? NavdbSource::Nasr
                     : csv          ? NavdbSource::OurAirports
                                    : NavdbSource::Xplane;
    if (csv && folder_.empty())
        usageError("--from " + from_ + " needs --dir");
    const bool namesFiles = !(apt_ + nav_ + fix_ + awy_).empty();
    if (!csv && !namesFiles && folder_.empty())
        usageError("--from xplane needs --dir or one of --apt, --nav, --fix and --awy");
    if (csv && namesFiles)
        usageError("--dir goes with ourairports and nasr, the other files with xplane");
    const XPlaneFiles inFolder =
        csv || folder_.empty() ? XPlaneFiles{} : findXPlaneFiles(pathOf(folder_));
    const auto chosen = [](const std::string& named, const std::filesystem::path& found) {
        return named.empty() ? found : pathOf(named);
    };
    options.apt = chosen(apt_, inFolder.apt);
    options.nav = chosen(nav_, inFolder.nav);
    options.fix = chosen(fix_, inFolder.fix);
    options.awy = chosen(awy_, inFolder.awy);
    options.folder = pathOf(folder_);
    options.output = output_.empty() ? ownDatabase(options.source) : pathOf(output_);
    options.region = regionFrom(region_);
    options.expiryYmd = expiryFrom(expiry_);

    ProgressBar bar;
    ImportLog log([&bar](const std::string& line) {
        bar.clear();
        std::cerr << line << '\n';
    });
    const std::string refused = buildNavdb(
        options, log, [&bar](double share, std::string_view what) { bar.show(share, what); });
    bar.clear();
    const Json document = {{"output", textOf(options.output)},
                           {"taken", countsOf(log.takenCounts())},
                           {"leftOut", countsOf(log.leftOutCounts())},
                           {"malformed", countsOf(log.malformedCounts())}};
    return refused.empty() ? call.done(document, log.summary() + textOf(options.output) + '\n')
                           : call.fail(refused, document);
}

}  // namespace korvel
