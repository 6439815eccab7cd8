#pragma once

#include <QProxyStyle>

namespace korvel {

/// The toolkit's plain style with boxes to tick and lists to choose from that a finger hits in a
/// bumpy cockpit and an eye finds on a dark sheet. The rest of the look is the scheme's, see
/// SchemeStyle.h.
class TouchStyle final : public QProxyStyle {
 public:
    TouchStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
};

}  // namespace korvel
