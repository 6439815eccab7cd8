#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QString>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>
#include <QtWidgets/qtestsupport_widgets.h>

// What the window's tests want of the toolkit's test library, which is not built for every system. The
// functions declared here are the toolkit's own.

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
    Qt::KeyboardModifiers modifiers, const QString& text, bool repeats, ushort count);

/// The name that the toolkit has made a friend: whoever has a keyboard is told by such events.
class QSpontaneKeyEvent {
 public:
    static void mark(QEvent& event) { event.setSpontaneous(); }
};

namespace QTest {
/// Fingers at a widget; what is pressed, moved and released in one sequence happens at one time.
inline QTouchEventWidgetSequence touchEvent(QWidget* widget, QPointingDevice* device, bool autoCommit) {
    return {widget, device, autoCommit};
}
}  // namespace QTest
QT_END_NAMESPACE

namespace korvel {

/// Presses a key and lets go of it; a shortcut that has it comes first, as with a keyboard.
inline void keyClick(
    QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QSpontaneKeyEvent::mark(press);
    if (!qt_sendShortcutOverrideEvent(widget, static_cast<ulong>(press.timestamp()), key, modifiers, text, false, 1))
        QCoreApplication::instance()->notify(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QSpontaneKeyEvent::mark(release);
    QCoreApplication::instance()->notify(widget, &release);
}

/// Types ASCII.
inline void keyClicks(QWidget* widget, const QString& words) {
    for (const QChar letter : words) keyClick(widget, letter.toUpper().unicode(), Qt::NoModifier, letter);
}

}  // namespace korvel
