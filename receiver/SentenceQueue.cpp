#include "receiver/SentenceQueue.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr std::size_t kMostWaiting = 256;

std::string_view idOf(std::string_view sentence) { return sentence.substr(0, sentence.find(',')); }

}  // namespace

void SentenceQueue::replace(std::string_view id, std::string_view sentence,
                            std::int64_t arrivedMs) {
    for (std::size_t i = count_; i-- > 0;)
        if (idOf(slots_[i].text) == id)
            removeAt(i);
    push(sentence, arrivedMs);
}

void SentenceQueue::append(std::string_view sentence, std::int64_t arrivedMs) {
    if (count_ >= kMostWaiting) {
        const auto oldest = std::ranges::find(
            sentences(), idOf(sentence), [](const Waiting& waiting) { return idOf(waiting.text); });
        if (oldest == sentences().end())
            return;
        removeAt(static_cast<std::size_t>(oldest - sentences().begin()));
    }
    push(sentence, arrivedMs);
}

void SentenceQueue::push(std::string_view sentence, std::int64_t arrivedMs) {
    if (count_ == slots_.size())
        slots_.emplace_back();
    Waiting& slot = slots_[count_++];
    slot.text.assign(sentence);
    slot.arrivedMs = arrivedMs;
}

void SentenceQueue::removeAt(std::size_t index) {
    const auto at = slots_.begin() + static_cast<std::ptrdiff_t>(index);
    std::rotate(at, at + 1, slots_.begin() + static_cast<std::ptrdiff_t>(count_));
    --count_;
}

}  // namespace korvel
