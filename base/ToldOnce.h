#pragma once

#include <string>
#include <utility>

namespace korvel {

/// A trouble that may last: what is tried again and again would tell the same each time, the user
/// hears of it once, and again only when it has been over in between. One thread at a time.
class ToldOnce {
 public:
    /// How the last attempt went; an empty text is success.
    void note(std::string trouble) {
        const bool begins = !lasts_ && !trouble.empty();
        lasts_ = !trouble.empty();
        if (begins)
            untold_ = std::move(trouble);
    }

    /// What has not been told yet; empty for nothing.
    [[nodiscard]] std::string take() { return std::exchange(untold_, {}); }

 private:
    std::string untold_;
    bool lasts_ = false;
};

}  // namespace korvel
