#pragma once

#include <cstdint>

namespace korvel {

/// While it lives, the process can open `left` more descriptors and then no other.
class DescriptorLimit {
 public:
    explicit DescriptorLimit(int left);
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;
    ~DescriptorLimit();

    /// Whether the system has such a limit.
    static bool isPossible();

 private:
    std::uint64_t before_ = 0;
};

}  // namespace korvel
