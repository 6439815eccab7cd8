#include "platform/Event.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace korvel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::size_t kMaxWaited = 4;

int descriptor(std::intptr_t native) { return static_cast<int>(native); }

/// Takes the signal; false when there is none.
bool consume(int fd) {
    eventfd_t count = 0;
    return ::eventfd_read(fd, &count) == 0;
}

}  // namespace

// The signal is the counter of an event descriptor, so that poll() can wait for it together with
// a device.
Event::Event(Reset reset) : native_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)), reset_(reset) {}

Event::~Event() {
    if (*this)
        ::close(descriptor(native_));
}

// NOLINTNEXTLINE(readability-make-member-function-const): the signal is the event's state
void Event::set() { ::eventfd_write(descriptor(native_), 1); }

// NOLINTNEXTLINE(readability-make-member-function-const): the signal is the event's state
void Event::reset() { consume(descriptor(native_)); }

bool Event::isSet() const {
    pollfd waited{.fd = descriptor(native_), .events = POLLIN, .revents = 0};
    return ::poll(&waited, 1, 0) > 0;
}

bool Event::wait(milliseconds timeout) { return waitAny({this}, timeout).has_value(); }

std::optional<std::size_t> Event::waitAny(std::initializer_list<Event*> events,
                                          milliseconds timeout) {
    assert(events.size() <= kMaxWaited);
    assert(std::ranges::all_of(events, [](const Event* event) { return bool(*event); }));
    std::array<pollfd, kMaxWaited> waited{};
    std::transform(events.begin(), events.end(), waited.begin(), [](const Event* event) {
        return pollfd{.fd = descriptor(event->native_), .events = POLLIN, .revents = 0};
    });
    const bool limited = timeout != kInfinite;
    const auto deadline = steady_clock::now() + (limited ? timeout : milliseconds(0));
    for (;;) {
        for (std::size_t i = 0; i < events.size(); ++i) {
            Event& event = *events.begin()[i];
            // Of several waiters at an automatic event, the one that resets it passes.
            if (event.reset_ == Reset::Auto ? consume(waited[i].fd) : event.isSet())
                return i;
        }
        int waitMs = -1;
        if (limited) {
            const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
            if (left.count() <= 0)
                return std::nullopt;
            waitMs = static_cast<int>(left.count());
        }
        ::poll(waited.data(), events.size(), waitMs);
    }
}

}  // namespace korvel
