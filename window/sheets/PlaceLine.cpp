#include "window/sheets/PlaceLine.h"

#include <QFontInfo>
#include <QPainter>
#include <QStyledItemDelegate>

#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"
#include "window/sheets/KindWord.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr int kInset = 10;
constexpr double kIdentColumn = 4.6;  // of the letters' height
constexpr double kSmall = 0.8;        // of the same: what stands below the name

/// What a row's columns hold, in the roles of its item.
enum Role : int { kIdent = Qt::UserRole, kName, kRemarks, kFigure };

class PlaceRows final : public QStyledItemDelegate {
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
        room.setLeft(room.left() +
                     std::max(qRound(kIdentColumn * letters),
                              kInset + painter.fontMetrics().horizontalAdvance(words(kIdent))));
        const auto line = [&](const QString& text, const QRect& area) {
            painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
        };
        const int upper = room.height() * 11 / 20;
        painter.setFont(row.font);
        line(words(kName), QRect(room.left(), room.top(), room.width(), upper));
        font = row.font;
        font.setPixelSize(qRound(kSmall * letters));
        painter.setFont(font);
        line(words(kRemarks),
             QRect(room.left(), room.top() + upper, room.width(), room.height() * 7 / 20));
    }
};

QString nameOf(const PlaceMatch& match) {
    QString name = match.name == match.ident ? QString() : QString::fromStdString(match.name);
    if (!match.town.empty())
        name += QStringLiteral(" (%1)").arg(QString::fromStdString(match.town));
    return name.trimmed();
}

}  // namespace

void showPlaces(QListWidget& list) { list.setItemDelegate(new PlaceRows(&list)); }

void addPlaceRow(QListWidget& list, const PlaceMatch& match, DistanceUnit unit,
                 const QString& why) {
    const QString ident = QString::fromStdString(match.ident);
    const QString name = nameOf(match);
    const QString kind = kindWord(match.kind);
    const QString old = match.expired ? toQString(kStatusTexts.expired) : QString();
    const QString figure =
        match.distanceNm ? toQString(distanceTenthsText(*match.distanceNm, unit)) : QString();
    QStringList all{ident, kind, name, figure, old, why};
    QStringList remarks{kind, old, why};
    all.removeAll(QString());
    remarks.removeAll(QString());
    auto* item = new QListWidgetItem(all.join(QStringLiteral("   ")), &list);  // the list owns it
    item->setData(kIdent, ident);
    item->setData(kName, name);
    item->setData(kRemarks, remarks.join(QStringLiteral(" \u00B7 ")));
    item->setData(kFigure, figure);
    item->setSizeHint({0, Sheet::kRowPixels});
}

}  // namespace korvel
