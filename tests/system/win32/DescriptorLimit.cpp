#include "system/DescriptorLimit.h"

namespace korvel {

DescriptorLimit::DescriptorLimit(int /*left*/) {}

DescriptorLimit::~DescriptorLimit() = default;

bool DescriptorLimit::isPossible() { return false; }

}  // namespace korvel
