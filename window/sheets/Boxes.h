#pragma once

#include <QFileDialog>
#include <QMessageBox>

namespace korvel {

/// Opens a box that the pilot answers, at the window's lower right, where the thumb is and the
/// aircraft is not. The map goes on behind it; it deletes itself. What is Critical has a frame in
/// the colour of a warning.
QMessageBox& openBox(QWidget& window, QMessageBox::Icon kind, const QString& words,
                     QMessageBox::StandardButtons buttons);

/// Opens a dialog for files over the whole of its parent's window, in the program's own look and
/// words wherever it runs. It deletes itself.
void openFileDialog(QFileDialog& dialog);

}  // namespace korvel
