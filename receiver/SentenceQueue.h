#pragma once

#include <cstddef>
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
    /// Drops every waiting sentence whose text before its first comma equals `id`, then appends:
    /// only the newest sentence of a kind is worth decoding.
    void replace(std::string_view id, std::string_view sentence);

    /// Appends without a check, for the sentences that come in several parts. When nobody has
    /// emptied the queue for very long, the oldest of their kind make room: never the only sentence
    /// of another kind.
    void append(std::string_view sentence);

    bool empty() const { return count_ == 0; }
    std::span<const std::string> sentences() const { return {slots_.data(), count_}; }
    void clear() { count_ = 0; }

 private:
    void push(std::string_view sentence);
    void removeAt(std::size_t index);

    std::vector<std::string> slots_;  // the first count_ wait, the rest is storage to reuse
    std::size_t count_ = 0;
};

}  // namespace korvel
