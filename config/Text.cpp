#include "config/Text.h"

#include <algorithm>
#include <cstddef>

#include "base/TextNumbers.h"
#include "config/Translation.h"

namespace korvel {
namespace {

std::string argumentText(const TextArgument& argument) {
    if (const int* number = std::get_if<int>(&argument))
        return formatInt(*number);
    return std::string(std::get<std::string_view>(argument));
}

}  // namespace

std::string_view text(const Text& text) { return wordsInUse(text); }

std::string formatText(const Text& text, std::initializer_list<TextArgument> arguments) {
    std::string result;
    std::string_view pattern = korvel::text(text);
    for (const TextArgument& argument : arguments) {
        const std::size_t place = std::min(pattern.find('%'), pattern.size());
        result += pattern.substr(0, place);
        result += argumentText(argument);
        pattern.remove_prefix(std::min(place + 2, pattern.size()));
    }
    return result += pattern;
}

}  // namespace korvel
