#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace korvel {

/// A user-visible text. Texts are declared once, in the groups of config/texts.
struct Text {
    int number;                ///< what a translation knows it by: never changed, never used again
    std::string_view english;  ///< its "%s" and "%d" are filled by formatText()

    friend constexpr bool operator==(const Text& one, const Text& other) {
        return one.number == other.number;
    }
};

/// The words of a text: a translation's (see Translation.h), or English.
std::string_view text(const Text& text);

using TextArgument = std::variant<int, std::string_view>;

/// The text with its "%d" and "%s" replaced by the arguments in turn.
std::string formatText(const Text& text, std::initializer_list<TextArgument> arguments);

}  // namespace korvel
