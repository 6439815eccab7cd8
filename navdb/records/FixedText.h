#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvel {

/// A text of at most `kCapacity` characters in place, NUL-terminated; what is longer is cut.
template <std::size_t kCapacity>
class FixedText {
    static_assert(kCapacity < 256);

 public:
    FixedText() = default;
    explicit FixedText(std::string_view text) { assign(text); }

    void assign(std::string_view text) {
        length_ = static_cast<std::uint8_t>(std::min(text.size(), kCapacity));
        std::copy_n(text.data(), length_, chars_.data());
        chars_[length_] = '\0';
    }
    [[nodiscard]] std::string_view view() const { return {chars_.data(), length_}; }
    [[nodiscard]] bool empty() const { return length_ == 0; }

    friend bool operator==(const FixedText& a, const FixedText& b) { return a.view() == b.view(); }

 private:
    std::array<char, kCapacity + 1> chars_{};
    std::uint8_t length_ = 0;
};

}  // namespace korvel
