// korvelctl: the libraries of the program without its window, for people, scripts and tests.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include "platform/PathText.h"
#include "platform/ProgramArguments.h"
#include "platform/Terminal.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

std::string verbList() {
    std::string list = "Verbs (\"korvelctl VERB --help\" tells more):\n";
    for (const Verb& verb : kVerbs) {
        list += "  " + std::string(verb.name);
        list.append(12 - std::min<std::size_t>(verb.name.size(), 11), ' ');
        list += std::string(verb.summary) + "\n";
    }
    return list;
}

/// Prints help on standard output and complaints on standard error.
int usage(const CLI::App& app, const CLI::Error& error) {
    return app.exit(error) == 0 ? kExitDone : kExitUsage;
}

int runVerb(const Verb& verb, std::vector<std::string> arguments,
            std::optional<std::filesystem::path> dataFolder) {
    Invocation call(verb, std::move(arguments), std::move(dataFolder));
    try {
        return verb.run(call);
    } catch (const CLI::Error& error) {
        return usage(call.options(), error);
    } catch (const std::exception& error) {
        return call.fail(error.what());
    }
}

/// Like the option parser's own, which does not know every name on every system.
std::string complaintAboutFolder(const std::string& name) {
    std::error_code error;
    return std::filesystem::is_directory(pathOf(name), error) ? std::string()
                                                              : "Directory does not exist: " + name;
}

int run(std::vector<std::string> arguments) {
    CLI::App app(
        "Korvel Pro without its window: checks files, decodes logs, plans and flies routes.",
        "korvelctl");
    std::string dataFolder;
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "korvelctl " KORVEL_VERSION);
    app.prefix_command();  // what follows the verb is the verb's own
    app.add_option("--data", dataFolder, "Folder of the databases and colour schemes")
        ->check(complaintAboutFolder, "DIR");
    app.footer(verbList());
    try {
        std::reverse(arguments.begin() + 1,
                     arguments.end());  // the parser wants the last one first
        arguments.erase(arguments.begin());
        app.parse(std::move(arguments));
        std::vector<std::string> rest = app.remaining();
        if (rest.empty())
            throw CLI::RequiredError("A verb");
        const auto* verb = std::ranges::find(kVerbs, rest.front(), &Verb::name);
        if (verb == kVerbs.end())
            throw CLI::ExtrasError(std::vector<std::string>{rest.front()});
        rest.erase(rest.begin());
        return runVerb(*verb, std::move(rest),
                       dataFolder.empty() ? std::nullopt : std::optional(pathOf(dataFolder)));
    } catch (const CLI::Error& error) {
        return usage(app, error);
    }
}

}  // namespace
}  // namespace korvel

int main(int argc, char** argv) {
    try {
        korvel::writePlainUtf8();
        const int status = korvel::run(korvel::programArguments(argc, argv));
        if (std::cout.flush())
            return status;
        std::cerr << "The output cannot be written\n";
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return korvel::kExitRefused;
}
