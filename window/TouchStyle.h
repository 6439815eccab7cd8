#pragma once

#include <QProxyStyle>

namespace korvel {

/// The toolkit's plain style with menus, lists, buttons and boxes to tick that a finger hits in a
/// bumpy cockpit.
class TouchStyle final : public QProxyStyle {
 public:
    TouchStyle();

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
};

}  // namespace korvel
