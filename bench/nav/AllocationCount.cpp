#include "AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> count{0};

}  // namespace

std::int64_t korvel::allocationCount() { return count; }

// The one place that has to manage memory by hand.
// NOLINTBEGIN(cppcoreguidelines-no-malloc)
void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
// NOLINTEND(cppcoreguidelines-no-malloc)
