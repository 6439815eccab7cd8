#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "config/DataFileSearch.h"
#include "platform/SystemClock.h"
#include "platform/VirtualClock.h"

namespace korvel {

/// Keeps the fields in the order in which they are set.
using Json = nlohmann::ordered_json;

inline constexpr int kExitDone = 0;
inline constexpr int kExitRefused = 1;  ///< the input was refused or nothing was found
inline constexpr int kExitUsage = 2;

class Invocation;

/// One verb of the command line. To add one: write its function in a file of its own
/// (NameVerb.cpp), declare it and give it a row in Verbs.h, and name the file in CMakeLists.txt.
///
/// The function declares its arguments on `call.options()`, calls `call.parse()`, does its work and
/// ends with `return call.done(...)` or `return call.fail(message)`. "--json" and "--help" are
/// there already. Wrong usage is thrown as a CLI::Error (usageError() in Arguments.h does it) and
/// leads to exit status 2.
struct Verb {
    std::string_view name;
    std::string_view summary;
    int (*run)(Invocation& call);
};

/// One call of a verb: its command line, the data folder, and the way its results go out.
class Invocation {
 public:
    /// `dataFolder` is what stands behind "--data"; without it the program's own data and the
    /// user's documents are searched.
    Invocation(const Verb& verb, std::vector<std::string> arguments,
               std::optional<std::filesystem::path> dataFolder);

    CLI::App& options() { return app_; }
    /// Adds "--now"; now() gives its time then, else the system clock's.
    void declareNow();
    /// Throws a CLI::Error on wrong usage or a call for help.
    void parse();

    bool json() const { return json_; }
    LocalTime now() const;
    /// A clock that stands at now(), in the system's time zone. The call must outlive it.
    VirtualClock clock() const { return {now(), systemClock_}; }
    /// The folders that hold the databases.
    std::vector<std::filesystem::path> dataFolders() const;
    /// The search for files that the user may supply.
    DataFileSearch dataFiles() const;

    /// One JSON document as a line of standard output; also for results "a line each".
    static void printJson(const Json& document);
    /// Ends the verb: prints `document` with "--json", else `plain`. Returns the exit status.
    int done(const Json& document, std::string_view plain) const;
    /// Ends the verb with a refusal: `message` goes to standard error and, with "--json", into
    /// "error" of `document`, which is printed.
    int fail(std::string_view message, Json document = Json::object()) const;

 private:
    CLI::App app_;
    std::vector<std::string> arguments_;
    std::optional<std::filesystem::path> dataFolder_;
    std::string now_;
    bool json_ = false;
    SystemClock systemClock_;
};

}  // namespace korvel
