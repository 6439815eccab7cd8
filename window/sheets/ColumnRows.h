#pragma once

#include <QListWidget>
#include <QString>

namespace korvel {

/// What a row of a list shows in columns; each may be empty.
struct ColumnRow {
    QString ident{};    ///< at the left, bold
    QString name{};     ///< beside it
    QString remarks{};  ///< smaller, below the name
    QString figure{};   ///< at the right, bold
};

/// Has the list show columns. Its rows come from addColumnRow().
void showColumns(QListWidget& list);

/// Adds a row as high as a finger wants it. Its text has all columns, for who does not see. The
/// list owns it.
QListWidgetItem& addColumnRow(QListWidget& list, const ColumnRow& row);
/// Has such a row show something else.
void setColumnRow(QListWidgetItem& item, const ColumnRow& row);

}  // namespace korvel
