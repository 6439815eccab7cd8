#include "window/SchemePalette.h"

#include <cmath>

#include <QColor>

#include "paint/ColorScheme.h"
#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

/// `share` of `over` laid over `under`, 0 to 1.
QColor mix(const QColor& under, const QColor& over, float share) {
    const auto blend = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(blend(under.redF(), over.redF()), blend(under.greenF(), over.greenF()),
                            blend(under.blueF(), over.blueF()));
}

/// `text` when it can be told from `ground`, else black or white. A scheme file may hold anything.
QColor readable(const QColor& text, const QColor& ground) {
    if (std::abs(text.lightnessF() - ground.lightnessF()) > 0.4F)
        return text;
    return ground.lightnessF() < 0.5F ? QColor(Qt::white) : QColor(Qt::black);
}

}  // namespace

QPalette schemePalette(const ColorScheme& scheme) {
    const QColor ground = toQColor(scheme.Color("map.background"));
    const QColor text = readable(toQColor(scheme.Color("geo.topo.label")), ground);
    const QColor chosen = toQColor(scheme.Color("nav.background"));
    const QColor chosenText = readable(toQColor(scheme.Color("nav.text")), chosen);
    const QColor pale = mix(ground, text, 0.5F);
    // Fields and round buttons stand out from the window by their ground: lighter at night too.
    const QColor field = ground.lightnessF() < 0.5F ? mix(ground, text, 0.18F) : ground;

    QPalette palette;
    palette.setColor(QPalette::Window, mix(ground, text, 0.08F));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, mix(ground, text, 0.05F));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, pale);
    palette.setColor(QPalette::Button, mix(ground, text, 0.14F));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, text);
    palette.setColor(QPalette::ToolTipBase, mix(ground, text, 0.14F));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, chosen);
    palette.setColor(QPalette::HighlightedText, chosenText);
    palette.setColor(QPalette::Link, text);
    palette.setColor(QPalette::LinkVisited, text);
    // The style draws its edges with these; left alone they would be the day's.
    palette.setColor(QPalette::Light, mix(ground, text, 0.2F));
    palette.setColor(QPalette::Midlight, mix(ground, text, 0.16F));
    palette.setColor(QPalette::Mid, mix(ground, text, 0.25F));
    palette.setColor(QPalette::Dark, mix(ground, text, 0.35F));
    palette.setColor(QPalette::Shadow, mix(ground, text, 0.4F));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, pale);
    return palette;
}

}  // namespace korvel
