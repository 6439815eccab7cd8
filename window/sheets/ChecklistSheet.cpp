#include "window/sheets/ChecklistSheet.h"

#include <QKeyEvent>

#include "cockpit/Checklists.h"
#include "config/Text.h"
#include "config/texts/BookTexts.h"
#include "window/QtText.h"
#include "window/sheets/ColumnRows.h"

namespace korvel {

ChecklistSheet::ChecklistSheet(QWidget* parent, Checklists& lists, const std::string& folder)
    : Sheet(parent, toQString(kBookTexts.checklistTitle), QDialogButtonBox::Close), lists_(lists) {
    for (std::size_t i = 0; i < lists.count(); ++i)
        choice_.addItem(toQString(lists.list(i).title));
    choice_.setAccessibleName(toQString(kBookTexts.checklistTitle));
    addRow(choice_);
    choice_.setVisible(lists.count() > 1);
    addNote(state_);
    addTallRow(rows_);
    showColumns(rows_);
    reset_.setText(toQString(kBookTexts.checklistReset));
    reset_.setAutoDefault(false);
    reset_.setMinimumHeight(kRowPixels);
    buttons().addButton(&reset_, QDialogButtonBox::ActionRole);
    setPreferredWidth(12 * kRowPixels);
    if (lists.count() == 0) {
        state_.setText(toQString(formatText(kBookTexts.checklistNone, {std::string_view(folder)})));
        rows_.hide();
        reset_.setEnabled(false);
        return;
    }
    rows_.installEventFilter(this);
    connect(
        &choice_, &QComboBox::currentIndexChanged, this, [this](int which) { choose(which); });
    connect(&rows_, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { toggle(*item); });
    connect(&reset_, &QPushButton::clicked, this, [this] {
        lists_.reset(which_);
        choose(static_cast<int>(which_));
    });
    choose(0);
    rows_.setFocus();
}

void ChecklistSheet::choose(int which) {
    which_ = static_cast<std::size_t>(which);
    rows_.clear();
    for (std::size_t row = 0; row < lists_.list(which_).rows.size(); ++row) {
        QListWidgetItem& item = addColumnRow(rows_, {});
        if (lists_.list(which_).rows[row].heading) {
            QFont font = rows_.font();
            font.setBold(true);
            item.setFont(font);
            item.setFlags(Qt::ItemIsEnabled);
        }
        showRow(row);
    }
    showState();
    goTo(0);
}

void ChecklistSheet::showRow(std::size_t row) {
    const Checklist::Row& words = lists_.list(which_).rows[row];
    QListWidgetItem& item = *rows_.item(static_cast<int>(row));
    if (words.heading)
        return setColumnRow(item, {.name = toQString(words.words)});
    const bool checked = lists_.isChecked(which_, row);
    setColumnRow(item, {.ident = checked ? QStringLiteral("\u2713") : QStringLiteral("\u25CB"),
                        .name = toQString(words.words),
                        .figure = toQString(words.response)});
    item.setData(Qt::AccessibleTextRole,
                 toQString(words.words + ", " + words.response +
                           (checked ? ", " + std::string(text(kBookTexts.checked)) : "")));
}

void ChecklistSheet::showState() {
    const int open = static_cast<int>(lists_.open(which_));
    const int items = static_cast<int>(lists_.items(which_));
    state_.setText(toQString(open == 0 ? std::string(text(kBookTexts.checklistDone))
                                       : formatText(kBookTexts.checklistOpen, {open, items})));
}

void ChecklistSheet::goTo(std::size_t row) {
    const auto next = lists_.nextOpen(which_, row);
    if (!next)
        return;
    rows_.setCurrentRow(static_cast<int>(*next));
    rows_.scrollToItem(rows_.currentItem(), QAbstractItemView::PositionAtCenter);
}

void ChecklistSheet::toggle(const QListWidgetItem& item) {
    const auto row = static_cast<std::size_t>(rows_.row(&item));
    if (lists_.list(which_).rows[row].heading)
        return;
    const bool checked = !lists_.isChecked(which_, row);
    lists_.setChecked(which_, row, checked);
    showRow(row);
    showState();
    if (checked)
        goTo(row);
}

bool ChecklistSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &rows_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) &&
            rows_.currentItem() != nullptr) {
            toggle(*rows_.currentItem());
            return true;
        }
    }
    return Sheet::eventFilter(watched, event);
}

}  // namespace korvel
