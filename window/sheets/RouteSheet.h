#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "geo/GeoPoint.h"
#include "nav/plan/PlaceMatches.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;
struct RouteCheck;

/// The route line: identifiers and airways, each word checked while it is typed. Where the first
/// word may mean several places the pilot is asked for one of them. Nothing changes until the whole
/// line is accepted.
class RouteSheet final : public Sheet {
 public:
    /// The document outlives the sheet. The line shows the plan in force as it was entered.
    RouteSheet(QWidget* parent, CKorvelDoc& document);

    void setVisible(bool visible) override;

 private:
    void accept() override;
    void check();
    [[nodiscard]] RouteCheck checked() const;
    void offerStarts();
    void say(const RouteCheck& route);
    void refuse(const RouteCheck& route);
    [[nodiscard]] std::string typed() const;
    /// Of the chosen row; else what is known without asking.
    [[nodiscard]] std::optional<GeoPoint> start() const;
    /// Where the plan in force starts, if by the same word; else where the aircraft is.
    [[nodiscard]] std::optional<GeoPoint> knownStart() const;
    [[nodiscard]] bool mustChoose() const;

    CKorvelDoc& document_;
    QLabel help_;
    QLineEdit line_;
    QListWidget starts_;
    std::vector<PlaceMatch> startPlaces_;  // the rows
    QLabel words_;
    QLabel message_;
};

}  // namespace korvel
