#include "platform/Event.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <windows.h>

namespace korvel {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMaxWaited = 4;

HANDLE handleOf(std::intptr_t native) {
    return reinterpret_cast<HANDLE>(native);  // NOLINT(performance-no-int-to-ptr): was a handle
}

}  // namespace

Event::Event(Reset reset) : reset_(reset) {
    const HANDLE made =
        CreateEventW(nullptr, reset == Reset::Manual ? TRUE : FALSE, FALSE, nullptr);
    native_ = made != nullptr ? reinterpret_cast<std::intptr_t>(made) : kNone;
}

Event::~Event() {
    if (*this)
        CloseHandle(handleOf(native_));
}

// NOLINTNEXTLINE(readability-make-member-function-const): the signal is the event's state
void Event::set() { SetEvent(handleOf(native_)); }

// NOLINTNEXTLINE(readability-make-member-function-const): the signal is the event's state
void Event::reset() { ResetEvent(handleOf(native_)); }

bool Event::isSet() const {
    const bool signalled = WaitForSingleObject(handleOf(native_), 0) == WAIT_OBJECT_0;
    if (signalled && reset_ == Reset::Auto)
        SetEvent(handleOf(native_));  // asking took the signal
    return signalled;
}

bool Event::wait(milliseconds timeout) { return waitAny({this}, timeout).has_value(); }

std::optional<std::size_t> Event::waitAny(std::initializer_list<Event*> events,
                                          milliseconds timeout) {
    assert(events.size() <= kMaxWaited);
    assert(std::ranges::all_of(events, [](const Event* event) { return bool(*event); }));
    std::array<HANDLE, kMaxWaited> waited{};
    std::transform(events.begin(), events.end(), waited.begin(),
                   [](const Event* event) { return handleOf(event->native_); });
    const DWORD waitMs = timeout == kInfinite ? INFINITE : static_cast<DWORD>(timeout.count());
    const DWORD result =
        WaitForMultipleObjects(static_cast<DWORD>(events.size()), waited.data(), FALSE, waitMs);
    if (result < WAIT_OBJECT_0 + events.size())
        return result - WAIT_OBJECT_0;
    return std::nullopt;
}

}  // namespace korvel
