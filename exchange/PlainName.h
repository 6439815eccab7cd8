#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

/// A name as an identifier: in ASCII without accents, everything but letters, digits and `marks` as
/// one
/// "-", none at its ends, at most `longest` characters. Empty when nothing is left.
std::string plainName(std::string_view name, std::string_view marks, std::size_t longest);

/// The same with a number behind it, "-2", and no longer than that.
std::string numberedName(std::string_view plain, int number, std::size_t longest);

}  // namespace korvel
