#pragma once

#include <memory>

#include "window/sheets/CAirportSheet.h"

namespace korvel {

/// What the map's symbols mean, in the colours in force.
class LegendSheet final : public Sheet {
 public:
    LegendSheet(QWidget* parent, const CAirportSheet::Look& look);

 private:
    std::unique_ptr<QWidget> picture_;
};

}  // namespace korvel
