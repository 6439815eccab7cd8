#include "navdb/search/NameWords.h"

#include <algorithm>

#include "base/Ascii.h"

namespace korvel {
namespace {

bool isOfWord(char letter) {
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

}  // namespace

std::vector<std::string> nameWords(std::string_view text) {
    const std::string capitals = inCapitals(text);
    std::vector<std::string> words;
    for (auto at = std::ranges::find_if(capitals, isOfWord); at != capitals.end();) {
        const auto end = std::find_if_not(at, capitals.end(), isOfWord);
        std::string word(at, end);
        if (word.size() >= kShortestNameWord && std::ranges::find(words, word) == words.end())
            words.push_back(std::move(word));
        at = std::find_if(end, capitals.end(), isOfWord);
    }
    return words;
}

bool hasWords(std::string_view name, std::span<const std::string> words) {
    const std::vector<std::string> own = nameWords(name);
    return std::ranges::all_of(words, [&own](const std::string& word) {
        return std::ranges::any_of(
            own, [&word](const std::string& each) { return each.starts_with(word); });
    });
}

}  // namespace korvel
