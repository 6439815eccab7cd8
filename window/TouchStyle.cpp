#include "window/TouchStyle.h"

#include <array>

#include <QPainter>
#include <QStyleOption>

namespace korvel {
namespace {

constexpr int kIndicatorPixels = 26;
constexpr double kStroke = 2;
constexpr double kCorner = 4;
constexpr double kTickStroke = 3;
constexpr double kFieldCorner = 6;
constexpr int kFieldMargin = 10;
constexpr int kFieldFrame = 3;
constexpr double kArrow = 7;
constexpr double kArrowFromEdge = 18;

/// A frame with a tick in it, or a ring with a dot, in the colours of what is chosen.
void drawIndicator(QPainter& painter, const QStyleOption& option, bool round) {
    const bool on = option.state.testFlag(QStyle::State_On);
    const QPalette& colors = option.palette;
    const QRectF box = QRectF(option.rect).adjusted(kStroke, kStroke, -kStroke, -kStroke);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.color(QPalette::WindowText), kStroke));
    painter.setBrush(colors.color(on ? QPalette::Highlight : QPalette::Base));
    const double corner = round ? box.width() / 2 : kCorner;
    painter.drawRoundedRect(box, corner, corner);
    const auto at = [&box](double x, double y) {
        return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
    };
    painter.setPen(QPen(colors.color(QPalette::HighlightedText), round ? 9 : kTickStroke,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (on && round)
        painter.drawPoint(box.center());
    else if (on)
        painter.drawPolyline(std::array{at(0.22, 0.52), at(0.42, 0.74), at(0.8, 0.26)}.data(), 3);
    painter.restore();
}

/// A field like the lines to type in, with an arrow that promises a list.
void drawChoice(QPainter& painter, const QStyleOptionComplex& option) {
    const QPalette& colors = option.palette;
    const bool marked = option.state.testFlag(QStyle::State_HasFocus);
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.color(marked ? QPalette::Text : QPalette::Mid), kStroke));
    painter.setBrush(colors.color(QPalette::Base));
    painter.drawRoundedRect(box, kFieldCorner, kFieldCorner);
    const QPointF tip(box.right() - kArrowFromEdge, box.center().y() + kArrow / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.color(QPalette::ButtonText));
    painter.drawPolygon(
        std::array{tip, tip + QPointF(-kArrow, -kArrow), tip + QPointF(kArrow, -kArrow)}.data(), 3);
    painter.restore();
}

}  // namespace

TouchStyle::TouchStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void TouchStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            return drawIndicator(*painter, *option, false);
        case PE_IndicatorRadioButton:
            return drawIndicator(*painter, *option, true);
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void TouchStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control == CC_ComboBox)
        return drawChoice(*painter, *option);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect TouchStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return option->rect.adjusted(kFieldMargin, kFieldFrame,
                                     -kFieldMargin - qRound(kArrowFromEdge), -kFieldFrame);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

/// Words alone on buttons: the desktop's pictures are of another style.
int TouchStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* more) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

int TouchStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return kIndicatorPixels;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QRect TouchStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    // All of the row, not only its words.
    if (element == SE_CheckBoxClickRect || element == SE_RadioButtonClickRect)
        return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

}  // namespace korvel
