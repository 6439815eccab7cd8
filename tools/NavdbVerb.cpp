#include "tools/NavdbBuildVerb.h"
#include "tools/Verbs.h"

namespace korvel {

int runNavdb(Invocation& call) {
    call.options().require_subcommand(1);
    const NavdbBuildVerb build(call.options());
    call.parse();
    return build.run(call);
}

}  // namespace korvel
