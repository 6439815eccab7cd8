#include <filesystem>
#include <iostream>
#include <span>
#include <string>

#include "compiler/BundledWorld.h"

/// korvel_worlddb SOURCES FOLDER: compiles the bundled databases into FOLDER and prints what was
/// taken. Faulty lines are only counted: the data are what they are.
int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 3) {
        std::cerr << "usage: korvel_worlddb SOURCES FOLDER\n";
        return 2;
    }
    korvel::ImportLog log;
    if (const auto refused = korvel::buildBundledWorld(arguments[1], arguments[2], log);
        !refused.empty()) {
        std::cerr << refused << '\n';
        return 1;
    }
    std::cout << log.summary();
    return 0;
}
