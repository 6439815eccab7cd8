#include "app/TextSheet.h"

#include <algorithm>

namespace korvel {

TextSheet::TextSheet(QWidget* parent, const QString& title, const QString& words)
    : Sheet(parent, title, QDialogButtonBox::Close) {
    words_.setReadOnly(true);
    words_.setPlainText(words);
    column().insertWidget(0, &words_, 1);
    constexpr int kMostWidth = 18 * kRowPixels;
    const QSize room = parent == nullptr ? QSize(kMostWidth, kMostWidth) : parent->size();
    resize(std::min(room.width(), kMostWidth), std::min(room.height(), kMostWidth));
}

}  // namespace korvel
