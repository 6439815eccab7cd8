#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// The text in the seven-bit characters that a database can hold: accented Latin letters lose
/// their accents ("Zürich" becomes "Zurich"), typographic marks become plain ones, anything else
/// '?', and control characters and runs of blanks one space. Bytes that are not UTF-8 are taken
/// as Latin-1, which the older sources use. Blanks at both ends go.
std::string toAsciiText(std::string_view text);

/// An identifier fit for a database: 1 to 11 letters, digits or one of - _ / .
bool isIdentifier(std::string_view text);

}  // namespace korvel
