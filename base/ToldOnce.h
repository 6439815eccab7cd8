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
        if (lasting_.empty() && !trouble.empty())
            untold_ = trouble;
        lasting_ = std::move(trouble);
    }

    /// What has not been told yet; empty for nothing.
    [[nodiscard]] std::string take() { return std::exchange(untold_, {}); }

    /// How the last attempt went, for as long as it stays so; empty for well.
    [[nodiscard]] const std::string& lasting() const { return lasting_; }

 private:
    std::string untold_;
    std::string lasting_;
};

}  // namespace korvel
