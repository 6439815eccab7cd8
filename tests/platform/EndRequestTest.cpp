#include <csignal>
#include <poll.h>

#include <gtest/gtest.h>

#include "platform/EndRequest.h"
#include "system/DescriptorLimit.h"

namespace korvel { namespace {

TEST(EndRequest, EverySignalIsHeardAndTheProcessLivesOn) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        for (const int descriptorsLeft : {2, 0}) {
            const DescriptorLimit limit(descriptorsLeft);
            const EndRequest request;
            pollfd wait{request.descriptor(), POLLIN, 0};
            EXPECT_EQ(wait.fd >= 0, descriptorsLeft > 0);
            EXPECT_EQ(poll(&wait, 1, 0) > 0 || request.isAsked(), false);
            for (int i = 0; i < 3; ++i) raise(signal);
            EXPECT_EQ(poll(&wait, 1, 0) > 0, descriptorsLeft > 0);
            EXPECT_TRUE(request.isAsked());
        }
    EXPECT_EXIT(raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

}}  // namespace korvel
