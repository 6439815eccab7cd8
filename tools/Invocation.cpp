#include "tools/Invocation.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "platform/Folders.h"
#include "tools/Arguments.h"

namespace korvel {
namespace {

/// The option parser takes "-5" for a number but "-.5" for a letter option.
void completeFraction(std::string& argument) {
    if (argument.size() > 2 && argument.starts_with("-.") && argument[2] >= '0' &&
        argument[2] <= '9')
        argument.insert(1, "0");
}

}  // namespace

Invocation::Invocation(const Verb& verb, std::vector<std::string> arguments,
                       std::optional<std::filesystem::path> dataFolder)
    : app_(std::string(verb.summary), "korvelctl " + std::string(verb.name)),
      arguments_(std::move(arguments)),
      dataFolder_(std::move(dataFolder)) {
    app_.allow_windows_style_options(false);
    app_.add_flag("--json", json_, "Print JSON for programs");
}

void Invocation::declareNow() {
    app_.add_option("--now", now_, "Local time to go by, YYYY-MM-DDTHH:MM:SS");
}

void Invocation::parse() {
    std::ranges::for_each(arguments_, completeFraction);
    std::vector<std::string> lastFirst(arguments_.rbegin(), arguments_.rend());
    app_.parse(std::move(lastFirst));
    if (!now_.empty())
        toLocalTime(now_);  // a malformed time is wrong usage, whether or not it is used later
}

LocalTime Invocation::now() const {
    return now_.empty() ? systemClock_.localNow() : toLocalTime(now_);
}

std::vector<std::filesystem::path> Invocation::dataFolders() const {
    return dataFolder_ ? std::vector{*dataFolder_} : korvel::dataFolders();
}

DataFileSearch Invocation::dataFiles() const { return DataFileSearch(dataFolders()); }

void Invocation::printJson(const Json& document) {
    // Bytes that are not UTF-8 come from users' files; they must not stop the output.
    std::cout << document.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

int Invocation::done(const Json& document, std::string_view plain) const {
    if (json_)
        printJson(document);
    else
        std::cout << plain;
    return kExitDone;
}

int Invocation::fail(std::string_view message, Json document) const {
    std::cerr << message << '\n';
    if (json_) {
        document["error"] = message;
        printJson(document);
    }
    return kExitRefused;
}

}  // namespace korvel
