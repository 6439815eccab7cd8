#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <QWidget>

#include "geo/Units.h"
#include "nav/plan/PlaceMatches.h"
#include "window/sheets/PlaceChoice.h"

namespace korvel {

class NavDatabase;

/// A line for an identifier with the places that begin with it below, the nearest first. Up and
/// Down choose among them.
class PlaceSearchBox final : public QWidget {
 public:
    /// The database must outlive the box; `near` is where the aircraft is. Airports that begin
    /// with `prefix` and what is typed are offered as well, behind the others.
    PlaceSearchBox(const NavDatabase& database, std::optional<GeoPoint> near, std::string prefix,
                   DistanceUnit unit);

    /// What to look up: the chosen match, else what was typed, in capitals.
    [[nodiscard]] PlaceChoice choice() const;
    /// Puts a place into the line that is known by other means.
    void setChoice(const PlaceChoice& choice);

    /// The choice has changed.
    std::function<void()> onChange;
    /// A match was chosen for good, by a double click.
    std::function<void()> onChosen;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void showMatches();

    const NavDatabase& database_;
    std::optional<GeoPoint> near_;
    std::string prefix_;
    DistanceUnit unit_;
    std::optional<PlaceChoice> given_;  // what stands in the line and was not typed
    std::vector<PlaceMatch> matches_;
    QVBoxLayout column_{this};
    QLineEdit edit_;
    QListWidget list_;
};

}  // namespace korvel
