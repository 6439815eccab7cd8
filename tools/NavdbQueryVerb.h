#pragma once

#include <string>

#include "tools/Invocation.h"

namespace korvel {

/// The actions of the verb "navdb" that read databases: info, verify and rows one file; find,
/// nearest and airway all that the data folder holds.
class NavdbQueryVerb {
 public:
    /// Adds the actions with their options to the verb's, and "--now".
    explicit NavdbQueryVerb(Invocation& call);

    /// After parsing: does what the command line asks for and ends the verb; the result is the
    /// exit status.
    int run(const Invocation& call) const;

 private:
    int info(const Invocation& call) const;
    int verify(const Invocation& call) const;
    int rows(const Invocation& call) const;
    int find(const Invocation& call) const;
    int nearest(const Invocation& call) const;
    int airway(const Invocation& call) const;

    struct Action {
        CLI::App* command;
        int (NavdbQueryVerb::*run)(const Invocation& call) const;
    };
    std::vector<Action> actions_;
    std::string file_;
    std::string index_;
    std::string key_;
    std::string near_;
    std::string kind_;
    std::string count_ = "20";
    std::string within_;
    CLI::Option* keyOption_ = nullptr;
};

}  // namespace korvel
