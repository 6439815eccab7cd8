#include "platform/Threading.h"

#include <system_error>
#include <utility>

namespace korvel {
namespace {

class SystemThreading final : public Threading {
 public:
    Event makeEvent(Event::Reset reset) override { return Event(reset); }

    std::thread startThread(std::function<void()> run) override {
        try {
            return std::thread(std::move(run));
        } catch (const std::system_error&) {
            return {};
        }
    }
};

}  // namespace

Threading& systemThreading() {
    static SystemThreading threading;
    return threading;
}

}  // namespace korvel
