#include "window/TouchStyle.h"

#include <algorithm>

#include <QStyleOption>

#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

constexpr int kMenuBarPixels = 34;  // 9 mm at 96 dots per inch
constexpr int kMenuBarMargin = 10;  // left and right of a menu's name
constexpr int kIndicatorPixels = 22;
constexpr int kScrollBarPixels = 24;
constexpr int kKeyMargin = 24;  // between a command and its key

bool isSeparator(const QStyleOption* option) {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator;
}

}  // namespace

TouchStyle::TouchStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QSize TouchStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_MenuBarItem:
            return {plain.width() + 2 * kMenuBarMargin, std::max(plain.height(), kMenuBarPixels)};
        case CT_MenuItem:
            return isSeparator(option) ? plain
                                       : QSize(plain.width() + kKeyMargin,
                                               std::max(plain.height(), Sheet::kRowPixels));
        case CT_ItemViewItem:
        case CT_PushButton:
        case CT_ComboBox:
            return {plain.width(), std::max(plain.height(), Sheet::kRowPixels)};
        default:
            return plain;
    }
}

int TouchStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return kIndicatorPixels;
        case PM_ScrollBarExtent:
            return kScrollBarPixels;
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
