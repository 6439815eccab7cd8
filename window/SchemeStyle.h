#pragma once

#include <QPalette>
#include <QString>

namespace korvel {

class ColorScheme;

/// Colours for whatever is not styled by name; by night nothing in them is brighter than their
/// text.
QPalette schemePalette(const ColorScheme& scheme);

/// How sheets, lists, buttons, menus and message boxes look in the scheme: rows for a finger, the
/// button that Enter presses filled, the focus framed. Every colour in it is one of the scheme's or
/// a mixture of those.
QString schemeStyleSheet(const ColorScheme& scheme);

/// Dresses the whole program, what is open included. The user-interface thread only.
void dressProgram(const ColorScheme& scheme);

}  // namespace korvel
