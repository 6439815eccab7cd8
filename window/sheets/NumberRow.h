#pragma once

#include <QFormLayout>
#include <QLineEdit>
#include <QString>

namespace korvel {

/// Adds a row for a number to type, with buttons for less and more beside it. The line stays the
/// caller's; an empty line counts as 0, and less than 0 is not offered.
void addNumberRow(QFormLayout& form, QLineEdit& line, const QString& name, int step, int decimals);

}  // namespace korvel
