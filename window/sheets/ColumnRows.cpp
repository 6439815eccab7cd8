#include "window/sheets/ColumnRows.h"

#include <algorithm>

#include <QFontInfo>
#include <QPainter>
#include <QStyledItemDelegate>

#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr int kInset = 10;
constexpr double kIdentColumn = 4.6;  // of the letters' height
constexpr double kSignColumn = 1.8;   // of the same, for a single sign
constexpr double kSmall = 0.8;        // of the same: what stands below the name

/// What a row's columns hold, in the roles of its item.
enum Role : int { kIdent = Qt::UserRole, kName, kRemarks, kFigure };

class ColumnPainter final : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& given,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = given;
        initStyleOption(&row, index);
        row.text.clear();
        row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const bool chosen = row.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setPen(row.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        paintColumns(*painter, row, index);
        painter->restore();
    }

 private:
    static int identColumn(const QString& ident, int letters, const QFontMetrics& metrics) {
        if (ident.isEmpty())
            return 0;
        const bool isSign = ident.size() == 1 && !ident.front().isLetterOrNumber();
        const double least = isSign ? kSignColumn : kIdentColumn;
        return std::max(qRound(least * letters), kInset + metrics.horizontalAdvance(ident));
    }

    static void paintColumns(QPainter& painter, const QStyleOptionViewItem& row,
                             const QModelIndex& index) {
        const auto words = [&index](Role role) { return index.data(role).toString(); };
        QFont font = row.font;
        const int letters = QFontInfo(row.font).pixelSize();
        QRect room = row.rect.adjusted(kInset, 0, -kInset, 0);
        font.setBold(true);
        painter.setFont(font);
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, words(kFigure));
        room.setRight(room.right() - kInset -
                      painter.fontMetrics().horizontalAdvance(words(kFigure)));
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, words(kIdent));
        room.setLeft(room.left() + identColumn(words(kIdent), letters, painter.fontMetrics()));
        const auto line = [&](const QString& text, const QRect& area) {
            painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
        };
        const int upper = words(kRemarks).isEmpty() ? room.height() : room.height() * 11 / 20;
        painter.setFont(row.font);
        line(words(kName), QRect(room.left(), room.top(), room.width(), upper));
        font = row.font;
        font.setPixelSize(qRound(kSmall * letters));
        painter.setFont(font);
        line(words(kRemarks),
             QRect(room.left(), room.top() + upper, room.width(), room.height() * 7 / 20));
    }
};

}  // namespace

void showColumns(QListWidget& list) { list.setItemDelegate(new ColumnPainter(&list)); }

QListWidgetItem& addColumnRow(QListWidget& list, const ColumnRow& row) {
    auto* item = new QListWidgetItem(&list);  // the list owns it
    item->setSizeHint({0, Sheet::kRowPixels});
    setColumnRow(*item, row);
    return *item;
}

void setColumnRow(QListWidgetItem& item, const ColumnRow& row) {
    QStringList all{row.ident, row.name, row.figure, row.remarks};
    all.removeAll(QString());
    item.setText(all.join(QStringLiteral("   ")));
    item.setData(kIdent, row.ident);
    item.setData(kName, row.name);
    item.setData(kRemarks, row.remarks);
    item.setData(kFigure, row.figure);
}

}  // namespace korvel
