#include "window/sheets/KeyPad.h"

#include <array>
#include <string_view>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QToolButton>

#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr std::array<std::string_view, 4> kRows = {"1234567890", "QWERTYUIOP", "ASDFGHJKL@",
                                                   "ZXCVBNM./-"};
constexpr int kColumns = 10;
constexpr int kKeyPixels = 36;  // a little lower than a row, so that the list above stays in sight
constexpr int kGap = 4;
constexpr int kRepeatDelayMs = 500;

}  // namespace

KeyPad::KeyPad(QWidget* parent) : QWidget(parent), grid_(this) {
    grid_.setContentsMargins(0, 0, 0, 0);
    grid_.setSpacing(kGap);
    int row = 0;
    for (const std::string_view keys : kRows) {
        for (int column = 0; const char key : keys)
            addKey(row, column++, QChar::fromLatin1(key), key);
        ++row;
    }
    addKey(0, kColumns, toQString(kSheetTexts.keyPadBack), Qt::Key_Backspace, 2);
    addKey(2, kColumns, toQString(kSheetTexts.keyPadSpace), Qt::Key_Space, 2);
}

void KeyPad::addKey(int row, int column, const QString& label, int key, int rows) {
    auto* button = new QToolButton(this);  // its parent owns it
    button->setText(label);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(kKeyPixels, kKeyPixels);
    button->setSizePolicy(QSizePolicy::Expanding,
                          rows > 1 ? QSizePolicy::Ignored : QSizePolicy::Fixed);
    button->setAutoRepeat(key == Qt::Key_Backspace);
    button->setAutoRepeatDelay(kRepeatDelayMs);
    connect(button, &QToolButton::clicked, this, [this, key] { press(key); });
    grid_.addWidget(button, row, column, rows, 1);
}

void KeyPad::press(int key) {
    QWidget* line = window()->focusWidget();
    if (line == nullptr)
        return;
    const QString typed = key < Qt::Key_Escape ? QString(QChar(key)) : QString();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, typed);
        QCoreApplication::sendEvent(line, &event);
    }
}

}  // namespace korvel
