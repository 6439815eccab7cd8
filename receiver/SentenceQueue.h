#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// Accepted sentences that wait for the next tick, in order of arrival. Not safe by itself: it
/// lives in a Guarded, whose lock is the queue lock. Storage is kept for reuse, so that a steady
/// stream of sentences allocates nothing.
class SentenceQueue {
 public:
    struct Waiting {
        std::string text;
        std::int64_t arrivedMs = 0;
    };

    /// Drops every waiting sentence whose text before its first comma equals `id`, then appends:
    /// only the newest sentence of a kind is worth decoding.
    void replace(std::string_view id, std::string_view sentence, std::int64_t arrivedMs);

    /// Appends without a check, for the sentences that come in several parts. When nobody has
    /// emptied the queue for very long, the oldest of their kind make room: never the only sentence
    /// of another kind.
    void append(std::string_view sentence, std::int64_t arrivedMs);

    bool empty() const { return count_ == 0; }
    std::span<const Waiting> sentences() const { return {slots_.data(), count_}; }
    void clear() { count_ = 0; }

 private:
    void push(std::string_view sentence, std::int64_t arrivedMs);
    void removeAt(std::size_t index);

    std::vector<Waiting> slots_;  // the first count_ wait, the rest is storage to reuse
    std::size_t count_ = 0;
};

}  // namespace korvel
