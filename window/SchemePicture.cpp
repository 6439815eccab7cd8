#include "window/SchemePicture.h"

#include <QPainter>
#include <QPixmap>

#include "paint/ColorScheme.h"
#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

constexpr int kWidth = 72;
constexpr int kHeight = 40;

}  // namespace

QIcon schemePicture(const ColorScheme& scheme) {
    const auto color = [&scheme](const char* key) { return toQColor(scheme.Color(key)); };
    QPixmap picture(kWidth, kHeight);
    picture.fill(color("geo.land"));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color("geo.water"));
    painter.drawEllipse(QPoint(0, kHeight), kWidth / 2, kHeight / 2);
    painter.setPen(QPen(color("map.flightplan.active"), 3));
    painter.drawLine(8, kHeight - 6, kWidth - 24, 10);
    painter.setPen(QPen(color("map.airport"), 2));
    painter.drawEllipse(QPoint(kWidth - 22, 10), 4, 4);
    painter.setPen(color("map.navaid"));
    painter.drawText(QRect(0, 14, kWidth - 4, 20), Qt::AlignRight, QStringLiteral("EDDH"));
    painter.fillRect(0, 0, 22, 12, color("nav.background"));
    painter.fillRect(4, 5, 14, 3, color("nav.text"));
    painter.setPen(color("hsi.numeral"));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(0, 0, kWidth - 1, kHeight - 1);
    return {picture};
}

}  // namespace korvel
