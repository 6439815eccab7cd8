#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "config/ReceiverChoice.h"
#include "window/sheets/Sheet.h"

namespace korvel {

/// Chooses the receiver's port: searched for, or one port at one speed.
class CGPSDialog final : public Sheet {
 public:
    /// `settings` is the "Port" setting, empty for the search.
    CGPSDialog(QWidget* parent, std::string_view settings, const ReceiverChoice& receiver);

    /// What the receiver does, asked for twice a second.
    std::function<std::string()> status;
    /// Listens to the receiver that is chosen, before the choice is made for good.
    std::function<void(const ReceiverChoice&)> onConnect;
    /// The pilot wants to see its sentences.
    std::function<void()> onTrace;

    /// The choice in the form of the "Port" setting.
    std::string settings() const;
    ReceiverChoice receiver() const;

 private:
    void fill(std::string_view settings);
    void fillNetwork(const ReceiverChoice& receiver);
    void enable();

    QRadioButton search_;
    QRadioButton fixed_;
    QComboBox port_;
    QComboBox baud_;
    QLabel hint_;
    QRadioButton network_;
    QComboBox source_;
    QPushButton connect_;
    std::string portBefore_;
    QCheckBox talkers_;
    QLabel status_;
    QPushButton trace_;
    QTimer timer_;
};

}  // namespace korvel
