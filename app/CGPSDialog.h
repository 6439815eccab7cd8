#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>

#include "app/Sheet.h"

namespace korvel {

/// Chooses the receiver's port: searched for, or one port at one speed.
class CGPSDialog final : public Sheet {
 public:
    /// `settings` is the "Port" setting, empty for the search.
    CGPSDialog(QWidget* parent, std::string_view settings);

    /// The choice in the form of the "Port" setting.
    std::string settings() const;

 private:
    void fill(std::string_view settings);

    QRadioButton search_;
    QRadioButton fixed_;
    QComboBox port_;
    QComboBox baud_;
    QLabel hint_;
};

}  // namespace korvel
