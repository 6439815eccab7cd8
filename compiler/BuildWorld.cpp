#include <iostream>
#include <span>
#include <string>

#include "compiler/NavdbBuild.h"
#include "compiler/TownsCompiler.h"

/// korvel_worlddb FOLDER OUT TOWNS: compiles the X-Plane files in FOLDER (apt.dat.gz, nav.dat.gz,
/// fix.dat.gz, awy.dat.gz) into OUT, its towns (places.dat.gz) into TOWNS, and prints what was
/// taken.
int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 4) {
        std::cerr << "usage: korvel_worlddb FOLDER OUT TOWNS\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    korvel::NavdbBuildOptions options;
    options.apt = folder / "apt.dat.gz";
    options.nav = folder / "nav.dat.gz";
    options.fix = folder / "fix.dat.gz";
    options.awy = folder / "awy.dat.gz";
    options.output = arguments[2];
    korvel::ImportLog log([](const std::string& line) { std::cerr << line << '\n'; });
    std::string refused = korvel::buildNavdb(options, log);
    if (refused.empty())
        refused = korvel::buildTowns(folder / "places.dat.gz", arguments[3], log);
    if (!refused.empty()) {
        std::cerr << refused << '\n';
        return 1;
    }
    std::cout << log.summary();
    return 0;
}
