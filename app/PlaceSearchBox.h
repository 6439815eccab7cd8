#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <QWidget>

#include "nav/PlaceMatches.h"

namespace korvel {

class NavDatabase;

/// A line for an identifier with the places that begin with it below, the nearest first. Up and
/// Down choose among them.
class PlaceSearchBox final : public QWidget {
 public:
    /// The database must outlive the box; `near` is where the aircraft is.
    PlaceSearchBox(const NavDatabase& database, std::optional<GeoPoint> near);

    /// What to look up: the key of the chosen match, else what was typed, in capitals.
    [[nodiscard]] std::string key() const;
    [[nodiscard]] QLineEdit& edit() { return edit_; }

    /// The key has changed.
    std::function<void()> onChange;
    /// A match was chosen for good, by a double click.
    std::function<void()> onChosen;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void showMatches();

    const NavDatabase& database_;
    std::optional<GeoPoint> near_;
    std::vector<PlaceMatch> matches_;
    QVBoxLayout column_{this};
    QLineEdit edit_;
    QListWidget list_;
};

}  // namespace korvel
