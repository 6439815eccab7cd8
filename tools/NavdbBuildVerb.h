#pragma once

#include <string>

#include "tools/Invocation.h"

namespace korvel {

/// The action "build" of the verb "navdb": compiles a database from open data.
class NavdbBuildVerb {
 public:
    /// Adds the action with its options to the verb's.
    explicit NavdbBuildVerb(CLI::App& verb);

    /// After parsing: whether the command line asks for this action.
    [[nodiscard]] bool isWanted() const { return command_->parsed(); }
    /// Does it and ends the verb; the result is the exit status. Malformed input lines go to
    /// standard error one by one, the summary to standard output.
    int run(const Invocation& call) const;

 private:
    CLI::App* command_;
    std::string from_;
    std::string apt_;
    std::string nav_;
    std::string fix_;
    std::string awy_;
    std::string folder_;
    std::string output_;
    std::string region_;
    std::string expiry_;
};

}  // namespace korvel
