#include "tools/NavdbBuildVerb.h"
#include "tools/NavdbQueryVerb.h"
#include "tools/Verbs.h"

namespace korvel {

int runNavdb(Invocation& call) {
    call.options().require_subcommand(1);
    const NavdbBuildVerb build(call.options());
    const NavdbQueryVerb query(call);
    call.parse();
    return build.isWanted() ? build.run(call) : query.run(call);
}

}  // namespace korvel
