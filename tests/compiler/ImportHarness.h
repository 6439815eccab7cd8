#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compiler/sources/XPlaneImport.h"

namespace korvel::test {

/// One source file in memory, imported: the data, the reported lines, and why it was refused.
struct Imported {
    AviationData data;
    std::vector<std::string> reported;
    ImportLog log{[this](const std::string& line) { reported.push_back(line); }};
    std::string refused;

    Imported() = default;
    Imported(const Imported&) = delete;
    Imported& operator=(const Imported&) = delete;
    ~Imported() = default;

    using Importer = std::string (*)(XPlaneFile&, ImportContext&, AviationData&);
    void xplane(Importer importer, std::string_view text) {
        ImportContext context{log, {}};
        XPlaneFile file("in.dat", openText(text), context);
        refused = importer(file, context, data);
        if (file.cycle()) data.cycle = file.cycle();
    }
};

}  // namespace korvel::test
