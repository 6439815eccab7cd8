// A traffic receiver that sends anything: the frames' memory stays bounded, and what is made of the
// messages are sentences that the decoder takes. The first byte says whether the rest is a stream
// or one message, which gets its frame here.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/VirtualClock.h"
#include "receiver/GpsInput.h"
#include "receiver/SentenceText.h"
#include "receiver/gdl90/Gdl90Receiver.h"

namespace korvel {
namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

class Listener final : public SentenceListener {
 public:
    void onLine(std::string_view line, std::int64_t /*arrivedMs*/) override {
        unsigned char sum = 0;
        require(hasSentenceCharacters(line));
        require(checkSum(line, sum) == ChecksumState::Right);
        input_.onSentence(line);
        input_.decode(*input_.queue().lock());
        const GpsFix fix = input_.store().copy();
        require(fix.fixQuality == 0 || std::abs(fix.position.lat) < 1.571);
        require(fix.satsInUse == 0);
    }

 private:
    VirtualClock clock_;
    GpsInput input_{clock_};
};

/// The table of the geoid takes longer to make than all the rest.
Gdl90Receiver& freshReceiver() {
    static Gdl90Receiver receiver;
    [[maybe_unused]] static const bool ready = [] {
        receiver.setGeoid(Geoid::fromBytes(std::string(std::size_t{181} * 361 * 2, '\1')));
        return true;
    }();
    receiver.forget();
    return receiver;
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    if (size == 0)
        return 0;
    Listener listener;
    Gdl90Receiver& receiver = freshReceiver();
    if ((data[0] & 1U) == 0) {
        // NOLINTNEXTLINE(*-reinterpret-cast): bytes as characters
        receiver.take({reinterpret_cast<const char*>(data) + 1, size - 1}, 0, listener);
    } else if (const auto message = decodeGdl90({data + 1, size - 1})) {
        receiver.takeMessage(*message, 0, listener);
    }
    return 0;
}
