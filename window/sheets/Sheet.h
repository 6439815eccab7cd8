#pragma once

#include <functional>
#include <initializer_list>
#include <utility>

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QScrollArea>
#include <QString>
#include <QToolButton>
#include <QVBoxLayout>

#include "window/sheets/KeyPad.h"

namespace korvel {

/// A dialog for a finger, at the window's right edge and as high as what it leaves free above: a
/// title with a way back, a column of large rows, which scrolls where it is too high, the buttons
/// at the foot. Enter accepts, Escape leaves. It is shown with open(), never run in a loop of its
/// own, so that the map goes on. Where something can be typed a key pad can be had; it comes by
/// itself when a finger taps a line, and once it was wanted also in the next sheet, until a real
/// keyboard is used.
class Sheet : public QDialog {
 public:
    /// Height of rows and buttons: a finger in a glove hits 12 mm on a screen of 96 dots per inch.
    static constexpr int kRowPixels = 48;
    /// Height of the letters, which are larger only in large windows.
    static constexpr int kUsualLetters = 15;

    /// Keeps the sheet off the window's upper part, whose height, in the window's pixels, is asked
    /// whenever the sheet is placed.
    void keepBelow(std::function<int()> height) { above_ = std::move(height); }

    bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
    Sheet(QWidget* parent, const QString& title, QDialogButtonBox::StandardButtons buttons);

    /// Adds a row and makes it high enough to touch. The widget stays the caller's.
    void addRow(QWidget& row);
    /// The same for several side by side.
    void addRow(std::initializer_list<QWidget*> sideBySide);
    /// Adds a row that takes what height there is, such as a list. The widget stays the caller's.
    void addTallRow(QWidget& row);
    /// Adds what is said about the rows above; it takes no room while it is empty. The label
    /// stays the caller's.
    void addNote(QLabel& note);
    /// Of the whole sheet in letters of the usual size, if the window has that much.
    void setPreferredWidth(int pixels) { preferredWidth_ = pixels; }

    QVBoxLayout& column() { return column_; }
    QDialogButtonBox& buttons() { return buttons_; }

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void nameButtons();
    void addHeader(const QString& title);
    void addFoot();
    void keepDefaultButton();
    void offerKeyPad();
    void letFingersScroll();
    void showKeyPad(bool on);
    void place();

    std::function<int()> above_;
    QVBoxLayout outer_;
    QWidget header_;
    QLabel title_;
    QToolButton back_;
    QScrollArea scroll_;  // of the body, which is gone before it
    QWidget body_;
    QVBoxLayout column_;
    KeyPad keyPad_;
    QDialogButtonBox buttons_;
    QToolButton keyPadButton_;
    int preferredWidth_ = 0;
};

}  // namespace korvel
