#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace korvel {

/// Another program's decoder, fed with a receiver's bytes.
class NmeaPeer {
 public:
    NmeaPeer() = default;
    NmeaPeer(const NmeaPeer&) = delete;
    NmeaPeer& operator=(const NmeaPeer&) = delete;
    virtual ~NmeaPeer() = default;

    /// Reads and decodes all whole lines before it returns.
    virtual void feed(std::string_view bytes) = 0;
    /// How many positions it has reported.
    virtual std::uint64_t positions() const = 0;
};

/// Null when the system has none.
std::unique_ptr<NmeaPeer> makeNmeaPeer();

}  // namespace korvel
