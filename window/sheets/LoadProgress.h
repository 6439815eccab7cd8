#pragma once

#include <string_view>

#include <QElapsedTimer>
#include <QProgressBar>

namespace korvel {

/// A bar at the lower edge of the map while something takes long. The window is painted meanwhile,
/// but takes no input: what is being loaded is not to be asked for.
class LoadProgress {
 public:
    /// The bar lies over `parent`.
    explicit LoadProgress(QWidget& parent);

    /// What is being done and how far it has come, in per cent.
    void show(std::string_view doing, int percent);

 private:
    QWidget& parent_;
    QElapsedTimer since_;
    QProgressBar bar_;
};

}  // namespace korvel
