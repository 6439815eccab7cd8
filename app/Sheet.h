#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace korvel {

/// A dialog for a finger: a column of large rows with the buttons below, Enter accepts, Escape
/// leaves. It is shown with open(), never run in a loop of its own, so that the map goes on.
class Sheet : public QDialog {
 public:
    /// Height of rows and buttons: 9 mm on a screen of 96 dots per inch, and a little more.
    static constexpr int kRowPixels = 40;

 protected:
    Sheet(QWidget* parent, const QString& title, QDialogButtonBox::StandardButtons buttons);

    /// Adds a row above the buttons and makes it high enough to touch. The widget stays the
    /// caller's.
    void addRow(QWidget& row);

    QVBoxLayout& column() { return column_; }
    QDialogButtonBox& buttons() { return buttons_; }

 private:
    QVBoxLayout column_;
    QDialogButtonBox buttons_;
};

}  // namespace korvel
