#pragma once

#include <fcntl.h>
#include <sys/resource.h>

namespace korvel {

/// While it lives, the process can open `left` more descriptors and then no other.
class DescriptorLimit {
 public:
    explicit DescriptorLimit(int left) {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit now = before_;
        now.rlim_cur = 0;
        while (left > 0 || isOpen(now.rlim_cur)) {
            left -= isOpen(now.rlim_cur) ? 0 : 1;
            ++now.rlim_cur;
        }
        setrlimit(RLIMIT_NOFILE, &now);
    }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;
    ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &before_); }

 private:
    static bool isOpen(rlim_t descriptor) { return fcntl(static_cast<int>(descriptor), F_GETFD) >= 0; }

    rlimit before_{};
};

}  // namespace korvel
