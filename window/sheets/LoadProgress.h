#pragma once

#include <functional>
#include <string_view>

#include <QElapsedTimer>
#include <QProgressBar>
#include <QToolButton>

namespace korvel {

/// A bar at the lower edge of the map while something takes long, with a button to break it off.
class LoadProgress {
 public:
    /// The bar lies over `parent`.
    LoadProgress(QWidget& parent, const std::function<void()>& onBreakOff);

    /// What is being done and how far it has come, in per cent. Nothing is seen of what is over at
    /// once.
    void show(std::string_view doing, int percent);

 private:
    QWidget& parent_;
    QElapsedTimer since_;
    QProgressBar bar_;
    QToolButton breakOff_;
};

}  // namespace korvel
