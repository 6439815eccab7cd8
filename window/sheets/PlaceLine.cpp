#include "window/sheets/PlaceLine.h"

#include "config/texts/StatusTexts.h"
#include "window/QtText.h"
#include "window/sheets/KindWord.h"

namespace korvel {

QString placeLine(const PlaceMatch& match, DistanceUnit unit) {
    QString line =
        QStringLiteral("%1   %2").arg(QString::fromStdString(match.ident), kindWord(match.kind));
    if (match.name != match.ident && !match.name.empty())
        line += QStringLiteral("   ") + QString::fromStdString(match.name);
    if (!match.town.empty())
        line += QStringLiteral(" (%1)").arg(QString::fromStdString(match.town));
    if (match.distanceNm) {
        UnitLabels labels;
        const double distance = ConvertDistance(*match.distanceNm, unit, &labels);
        line += QStringLiteral("   %1 %2")
                    .arg(QString::number(distance, 'f', distance < 100 ? 1 : 0),
                         toQString(labels.distance));
    }
    if (match.expired)
        line += QStringLiteral("   ") + toQString(kStatusTexts.expired);
    return line;
}

}  // namespace korvel
