#pragma once

#include <QPlainTextEdit>

#include "window/sheets/Sheet.h"

namespace korvel {

/// A long text to read, to scroll and to copy from, as large as the window lets it be.
class TextSheet : public Sheet {
 public:
    TextSheet(QWidget* parent, const QString& title, const QString& words);

 protected:
    QPlainTextEdit& words() { return words_; }

 private:
    QPlainTextEdit words_;
};

}  // namespace korvel
