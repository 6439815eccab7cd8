#include "window/sheets/PlaceLine.h"

#include "config/texts/StatusTexts.h"
#include "geo/GeoText.h"
#include "window/QtText.h"
#include "window/sheets/ColumnRows.h"
#include "window/sheets/KindWord.h"

namespace korvel {
namespace {

QString nameOf(const PlaceMatch& match) {
    QString name = match.name == match.ident ? QString() : QString::fromStdString(match.name);
    if (!match.town.empty())
        name += QStringLiteral(" (%1)").arg(QString::fromStdString(match.town));
    return name.trimmed();
}

}  // namespace

void showPlaces(QListWidget& list) { showColumns(list); }

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
    QListWidgetItem& item = addColumnRow(list, {.ident = ident,
                                                .name = name,
                                                .remarks = remarks.join(QStringLiteral(" \u00B7 ")),
                                                .figure = figure});
    item.setText(all.join(QStringLiteral("   ")));
}

}  // namespace korvel
