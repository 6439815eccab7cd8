#include <csignal>
#include <poll.h>

#include <gtest/gtest.h>

#include "platform/EndRequest.h"

namespace korvel { namespace {

TEST(EndRequest, EverySignalIsHeardAndTheProcessLivesOn) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const EndRequest request;
        pollfd wait{request.descriptor(), POLLIN, 0};
        EXPECT_EQ(poll(&wait, 1, 0), 0);
        for (int i = 0; i < 3; ++i) raise(signal);
        EXPECT_EQ(poll(&wait, 1, 0), 1);
    }
    EXPECT_EXIT(raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

}}  // namespace korvel
