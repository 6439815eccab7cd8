#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <QWidget>

#include "config/Text.h"
#include "geo/GeoPoint.h"
#include "nav/plan/PlaceMatches.h"
#include "window/sheets/PlaceChoice.h"

namespace korvel {

class CKorvelDoc;

/// A line for an identifier, a name or a town with the places that begin so below, the nearest
/// first; before a letter is typed, with those that the pilot knows. Up and Down choose among them.
class PlaceSearchBox final : public QWidget {
 public:
    /// The document must outlive the box; `near` is where places are looked for first. Airports
    /// that begin with the prefix of the settings and what is typed are offered as well, behind the
    /// others.
    PlaceSearchBox(CKorvelDoc& document, std::optional<GeoPoint> near);

    /// What to look up: the chosen match, else what was typed, in capitals.
    [[nodiscard]] PlaceChoice choice() const;
    /// What to ask the pilot before choice() is taken: what was typed is spelled as a place that is
    /// far away, and none of the list was chosen. Empty for nothing; the same is asked once, then
    /// that place counts as chosen.
    [[nodiscard]] std::string question();
    /// What stands in the line while it is empty.
    void setHint(Text hint);
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
    void showKnown();
    void addRow(const PlaceMatch& match, const QString& why);

    CKorvelDoc& document_;
    std::optional<GeoPoint> near_;
    std::optional<PlaceChoice> given_;  // what stands in the line and was not typed
    std::vector<PlaceMatch> matches_;
    QVBoxLayout column_{this};
    QLineEdit edit_;
    QListWidget list_;
};

}  // namespace korvel
