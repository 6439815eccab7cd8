#pragma once

#include <functional>

#include <QListWidget>
#include <QPushButton>

#include "pages/NavField.h"
#include "window/sheets/Sheet.h"

namespace korvel {

/// Chooses what a navigation field shows, out of all fields that there are.
class FieldSheet final : public Sheet {
 public:
    /// The fields are listed with what they show of the data.
    FieldSheet(QWidget* parent, NavFieldId current, const CockpitData& shown);

    void accept() override;

    /// Called with the choice before the sheet closes.
    std::function<void(NavFieldId)> onChosen;
    /// Of the altitude's field: the pilot wants to set the altimeter.
    std::function<void()> onAltimeter;

 private:
    QListWidget list_;
    QPushButton altimeter_;
};

}  // namespace korvel
