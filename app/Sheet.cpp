#include "app/Sheet.h"

#include <QPushButton>

namespace korvel {

Sheet::Sheet(QWidget* parent, const QString& title, QDialogButtonBox::StandardButtons buttons)
    : QDialog(parent), column_(this), buttons_(buttons) {
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    column_.setContentsMargins(16, 16, 16, 16);
    column_.setSpacing(10);
    column_.addWidget(&buttons_);
    for (QAbstractButton* button : buttons_.buttons())
        button->setMinimumSize(3 * kRowPixels, kRowPixels);
    connect(&buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(&buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void Sheet::addRow(QWidget& row) {
    row.setMinimumHeight(std::max(kRowPixels, row.minimumHeight()));
    column_.insertWidget(column_.count() - 1, &row);
}

}  // namespace korvel
