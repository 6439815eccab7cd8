#include "system/DescriptorLimit.h"

#include <fcntl.h>
#include <sys/resource.h>

namespace korvel {
namespace {

bool isOpen(rlim_t descriptor) { return fcntl(static_cast<int>(descriptor), F_GETFD) >= 0; }

void setSoftLimit(rlim_t descriptors) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = descriptors;
    setrlimit(RLIMIT_NOFILE, &limit);
}

}  // namespace

DescriptorLimit::DescriptorLimit(int left) {
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    before_ = before.rlim_cur;
    rlim_t now = 0;
    for (; left > 0 || isOpen(now); ++now) left -= isOpen(now) ? 0 : 1;
    setSoftLimit(now);
}

DescriptorLimit::~DescriptorLimit() { setSoftLimit(before_); }

bool DescriptorLimit::isPossible() { return true; }

}  // namespace korvel
