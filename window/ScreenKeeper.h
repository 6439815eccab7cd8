#pragma once

#include <memory>

namespace korvel {

/// Keeps the screen on while the pilot needs it: by the system, else by the desktop if that can be
/// asked. A desktop that cannot, or refuses, lets the screen sleep as it is set up.
class ScreenKeeper {
 public:
    ScreenKeeper();
    ScreenKeeper(const ScreenKeeper&) = delete;
    ScreenKeeper& operator=(const ScreenKeeper&) = delete;
    ~ScreenKeeper();

    /// Call as often as you like; only a change does anything. Never waits for an answer.
    void keep(bool on);

 private:
    class Desktop;

    bool kept_ = false;
    std::unique_ptr<Desktop> desktop_;
};

}  // namespace korvel
