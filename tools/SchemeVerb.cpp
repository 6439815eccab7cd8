#include <string>

#include "base/TextNumbers.h"
#include "paint/ColorScheme.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {

int runScheme(Invocation& call) {
    std::string name;
    call.options()
        .add_option("name", name, "A built-in name (<Default>, Glass) or a scheme file's name")
        ->required();
    call.parse();
    ColorScheme scheme;
    scheme.load(name, call.dataFiles());

    Json colors = Json::object();
    std::string plain;
    for (const auto& [key, color] : scheme.entries()) {
        colors[key] = {RedOf(color), GreenOf(color), BlueOf(color)};
        plain += key + " = " + formatInt(RedOf(color)) + "," + formatInt(GreenOf(color)) + "," +
                 formatInt(BlueOf(color)) + "\n";
    }
    return call.done({{"colors", colors}}, plain);
}

}  // namespace korvel
