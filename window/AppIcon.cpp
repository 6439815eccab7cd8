#include "window/AppIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include "paint/ColorScheme.h"
#include "qtpaint/QtCanvas.h"

namespace korvel {

QIcon appIcon(const ColorScheme& scheme) {
    constexpr int kSide = 64;
    const QColor line = toQColor(scheme.Color("map.flightplan.active"));
    QPixmap picture(kSide, kSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(scheme.Color("nav.background")));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
    painter.setPen(QPen(line, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(32, 9), QPointF(32, 55));
    // Nose, right wing, right tailplane and their mirror images.
    const QPolygonF right({{32, 14},
                           {35, 20},
                           {35, 28},
                           {54, 38},
                           {54, 43},
                           {35, 38},
                           {35, 46},
                           {42, 51},
                           {42, 55},
                           {32, 52}});
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(scheme.Color("nav.text")));
    painter.drawPolygon(right);
    painter.drawPolygon(QTransform(-1, 0, 0, 1, 64, 0).map(right));
    painter.end();
    return {picture};
}

}  // namespace korvel
