#include "window/SchemeStyle.h"

#include <array>
#include <cmath>
#include <utility>

#include <QApplication>
#include <QColor>

#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "qtpaint/QtCanvas.h"
#include "window/sheets/Sheet.h"

namespace korvel {
namespace {

/// `text` when it can be told from `ground`, else black or white. A scheme file may hold anything.
ColorValue readable(ColorValue text, ColorValue ground) {
    if (std::abs(lightOf(text) - lightOf(ground)) > 100)
        return text;
    return lightOf(ground) < 128 ? Rgb(255, 255, 255) : Rgb(0, 0, 0);
}

/// What the style is mixed from.
struct StyleColors {
    explicit StyleColors(const MapColorCache& colors)
        : ground(colors[ColorKey::MapBackground]),
          text(readable(colors[ColorKey::HsiNumeral], ground)),
          chosen(colors.chosenGround()),
          chosenText(readable(colors.chosenInk(), chosen)),
          head(colors[ColorKey::NavBackground]),
          headText(readable(colors[ColorKey::NavText], head)),
          danger(colors[ColorKey::MapObstacleDanger]),
          pale(blended(ground, text, 0.55)),
          // Black swallows more of a tint than white does.
          tint_(colors.isDark() ? 2.5 : 1) {}

    /// The ground with a share of the chosen's colour, 0 to 0.4.
    ColorValue tinted(double share) const { return blended(ground, chosen, share * tint_); }

    ColorValue ground;
    ColorValue text;
    ColorValue chosen;
    ColorValue chosenText;
    ColorValue head;
    ColorValue headText;
    ColorValue danger;
    ColorValue pale;

 private:
    double tint_;
};

constexpr double kWindow = 0.05;  // shares of tinted()
constexpr double kButton = 0.11;
constexpr double kPressed = 0.28;
constexpr double kLine = 0.22;
constexpr double kEdge = 0.4;

// Rows count without their borders. The letters come from the application's font, which grows with
// the window.
constexpr const char* kSheet = R"(
QDialog, QMessageBox { background: @window; }
QMessageBox { border: 3px solid @edge; }
QMessageBox[alarm="true"] { border-color: @danger; }
QMessageBox QLabel { padding: 8px 12px; }
QMessageBox QPushButton { min-width: 88px; }
QLabel { color: @text; background: transparent; }
#sheetHeader { background: @head; }
#sheetHeader QLabel { color: @headText; font-weight: bold; }
#sheetHeader QToolButton { color: @headText; background: transparent; border: none;
    font-size: 24px; }
#sheetHeader QToolButton:pressed { background: @chosen; color: @chosenText; }

QPushButton, QToolButton { color: @text; background: @button; border: 2px solid @edge;
    border-radius: 6px; }
QPushButton { min-height: @innerRow; padding: 0 6px; }
QPushButton:default { color: @chosenText; background: @chosen; border-color: @chosen;
    font-weight: bold; }
QPushButton:focus { border-color: @text; }
QPushButton:pressed, QPushButton:checked, QToolButton:pressed, QToolButton:checked { color: @text;
    background: @pressed; border-color: @text; }
QPushButton:disabled, QToolButton:disabled { color: @pale; background: @window;
    border-color: @line; }

QLineEdit, QAbstractSpinBox, QPlainTextEdit, QTextEdit, QAbstractItemView {
    color: @text; background: @ground; border: 2px solid @line; border-radius: 6px;
    selection-background-color: @chosen; selection-color: @chosenText; }
QLineEdit, QAbstractSpinBox { min-height: @innerRow; padding: 0 10px; }
QLineEdit:focus, QAbstractSpinBox:focus, QPlainTextEdit:focus,
QAbstractItemView:focus { border-color: @text; }
QLineEdit:disabled { color: @pale; background: @window; }

QComboBox QLineEdit { min-height: 0; padding: 0; border: none; background: transparent; }

QAbstractItemView { outline: none; }
QAbstractItemView::item { min-height: @row; padding: 0 8px; border: none;
    border-bottom: 1px solid @line; }
QAbstractItemView::item:selected { color: @chosenText; background: @chosen; }
QHeaderView::section { color: @text; background: @button; border: none; padding: 0 8px;
    min-height: @row; }

QCheckBox, QRadioButton { color: @text; min-height: @innerRow; spacing: 12px;
    border: 2px solid transparent; border-radius: 6px; }
QCheckBox:focus, QRadioButton:focus { border-color: @text; }

QTabWidget::pane { border: none; border-top: 2px solid @line; }
QTabBar::tab { color: @text; background: transparent; border: none;
    border-bottom: 4px solid transparent; min-height: 40px; padding: 2px 14px; }
QTabBar::tab:selected { font-weight: bold; border-bottom-color: @chosen; }
QTabBar::tab:selected:focus { background: @pressed; }

QMenuBar { color: @text; background: @window; }
QMenuBar::item { background: transparent; padding: 8px 14px; }
QMenu { color: @text; background: @window; border: 1px solid @edge; }
QMenu::item { min-height: 38px; padding: 0 28px 0 40px; }
QMenuBar::item:selected, QMenu::item:selected { color: @chosenText; background: @chosen; }
QMenu::item:disabled { color: @pale; }
QMenu::separator { height: 2px; background: @line; }

QScrollBar:vertical { background: transparent; width: 16px; }
QScrollBar:horizontal { background: transparent; height: 16px; }
QScrollBar::handle { background: @edge; border-radius: 5px; margin: 3px; min-height: @row;
    min-width: @row; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QToolTip { color: @text; background: @button; border: 1px solid @edge; }
)";

StyleColors styleColors(const ColorScheme& scheme) { return StyleColors(MapColorCache(scheme)); }

}  // namespace

QPalette schemePalette(const ColorScheme& scheme) {
    const StyleColors colors = styleColors(scheme);
    QPalette palette(toQColor(colors.tinted(kButton)), toQColor(colors.tinted(kWindow)));
    const auto roles = std::to_array<std::pair<QPalette::ColorRole, ColorValue>>({
        {QPalette::WindowText, colors.text},
        {QPalette::Text, colors.text},
        {QPalette::ButtonText, colors.text},
        {QPalette::BrightText, colors.text},
        {QPalette::ToolTipText, colors.text},
        {QPalette::Link, colors.text},
        {QPalette::LinkVisited, colors.text},
        {QPalette::PlaceholderText, colors.pale},
        {QPalette::Base, colors.ground},
        {QPalette::AlternateBase, colors.tinted(kWindow)},
        {QPalette::ToolTipBase, colors.tinted(kButton)},
        {QPalette::Highlight, colors.chosen},
        {QPalette::HighlightedText, colors.chosenText},
        // Edges; left alone they would be the day's.
        {QPalette::Light, colors.tinted(kButton)},
        {QPalette::Midlight, colors.tinted(kButton)},
        {QPalette::Mid, colors.tinted(kLine)},
        {QPalette::Dark, colors.tinted(kEdge)},
        {QPalette::Shadow, colors.tinted(kEdge)},
    });
    for (const auto& [role, color] : roles)
        palette.setColor(role, toQColor(color));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, toQColor(colors.pale));
    return palette;
}

QString schemeStyleSheet(const ColorScheme& scheme) {
    const StyleColors colors = styleColors(scheme);
    QString sheet = QString::fromLatin1(kSheet);
    const auto set = [&sheet](const char* name, const QString& value) {
        sheet.replace(QLatin1Char('@') + QLatin1String(name), value);
    };
    // A longer name before the shorter one with which it begins.
    const auto names = std::to_array<std::pair<const char*, ColorValue>>({
        {"window", colors.tinted(kWindow)},
        {"button", colors.tinted(kButton)},
        {"pressed", colors.tinted(kPressed)},
        {"line", colors.tinted(kLine)},
        {"edge", colors.tinted(kEdge)},
        {"ground", colors.ground},
        {"chosenText", colors.chosenText},
        {"chosen", colors.chosen},
        {"headText", colors.headText},
        {"head", colors.head},
        {"text", colors.text},
        {"pale", colors.pale},
        {"danger", colors.danger},
    });
    for (const auto& [name, color] : names)
        set(name, toQColor(color).name());
    constexpr int kBorders = 4;
    set("innerRow", QStringLiteral("%1px").arg(Sheet::kRowPixels - kBorders));
    set("row", QStringLiteral("%1px").arg(Sheet::kRowPixels));
    return sheet;
}

void dressProgram(const ColorScheme& scheme) {
    QApplication::setPalette(schemePalette(scheme));
    qApp->setStyleSheet(schemeStyleSheet(scheme));
}

}  // namespace korvel
