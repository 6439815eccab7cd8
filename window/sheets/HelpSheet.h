#pragma once

#include <cstdint>

#include <QLabel>

#include "window/sheets/Sheet.h"

namespace korvel {

enum class HelpTopic : std::uint8_t { FirstFlight, About };

/// A page of help to read and close.
class HelpSheet final : public Sheet {
 public:
    HelpSheet(QWidget* parent, HelpTopic topic);

 private:
    QLabel words_;
};

}  // namespace korvel
