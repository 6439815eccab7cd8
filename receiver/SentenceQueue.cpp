#include "receiver/SentenceQueue.h"

#include <algorithm>

namespace korvel {

void SentenceQueue::replace(std::string_view id, std::string_view sentence) {
    for (std::size_t i = count_; i-- > 0;) {
        const std::string_view waiting = slots_[i];
        if (waiting.substr(0, waiting.find(',')) == id) {
            removeAt(i);
        }
    }
    append(sentence);
}

void SentenceQueue::append(std::string_view sentence) {
    constexpr std::size_t kMostWaiting = 256;
    if (count_ == kMostWaiting) {
        removeAt(0);
    }
    if (count_ == slots_.size()) {
        slots_.emplace_back();
    }
    slots_[count_++].assign(sentence);
}

void SentenceQueue::removeAt(std::size_t index) {
    const auto at = slots_.begin() + static_cast<std::ptrdiff_t>(index);
    std::rotate(at, at + 1, slots_.begin() + static_cast<std::ptrdiff_t>(count_));
    --count_;
}

}  // namespace korvel
