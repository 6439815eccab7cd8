#include "receiver/ModulePort.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/ReceiverTexts.h"
#include "receiver/SentenceReceiver.h"

namespace korvel {

ModulePort::ModulePort(SerialDeviceOpener opener, const Clock& clock,
                       std::function<void(std::string_view)> onAttitude)
    : onAttitude_(std::move(onAttitude)), port_(std::move(opener), clock) {}

void ModulePort::keepOpen(const std::optional<PortSettings>& wanted) {
    if (!wanted || port_.hasFailed() || port_.seemsStale() || port_.settings() != *wanted)
        port_.stop();
    isHeard_ = port_.isReceiving();
    if (!wanted) {
        failure_.clear();
        trouble_.note({});
        return;
    }
    if (port_.isRunning())
        return;
    port_.choose(*wanted);
    failure_ = port_.start(*this);
    const std::string label = wanted->label();
    trouble_.note(failure_.empty()
                      ? failure_
                      : formatText(kReceiverTexts.moduleTrouble,
                                   {std::string_view(label), std::string_view(failure_)}));
}

void ModulePort::onLine(std::string_view line, std::int64_t /*arrivedMs*/) {
    if (const auto sentence = attitudeSentence(line))
        onAttitude_(*sentence);
}

}  // namespace korvel
