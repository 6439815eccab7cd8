#pragma once

#include <functional>

#include <QListWidget>

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

 private:
    QListWidget list_;
};

}  // namespace korvel
