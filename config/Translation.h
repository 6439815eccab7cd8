#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/Text.h"

namespace korvel {

class DataFileSearch;

/// The words of another language for the texts, by their numbers. Whatever a file holds, what is
/// taken from it can stand in the place of the English text; what it lacks stays English.
class Translation {
 public:
    /// English.
    Translation() = default;

    /// Reads a file in UTF-8: a line for each text, its number, a blank, and the words, in which
    /// "\n" is a new line and "\\" a backslash. Empty lines and lines that begin with "#" do not
    /// count. A line is refused when its number is no text's or was given before, when its words
    /// are empty, no UTF-8 or hold control characters, and when its "%s" and "%d" are not those of
    /// the English text in the same order. `language` is its tag ("de").
    Translation(std::string_view bytes, std::string language);

    /// The words for that number, or nothing.
    const std::string* find(int number) const;

    const std::string& language() const { return language_; }
    std::size_t size() const { return words_.size(); }
    /// Counted from 1, in ascending order.
    std::span<const int> refusedLines() const { return refusedLines_; }

 private:
    bool take(std::string_view line);

    std::string language_ = "en";
    std::map<int, std::string> words_;
    std::vector<int> refusedLines_;
};

/// The translation into the first of these languages ("de-AT", the best one first) that there is:
/// of each the file "de-AT.lang" or else "de.lang" is looked for. English needs none.
Translation findTranslation(const DataFileSearch& files, std::span<const std::string> languages);

/// From now on text() gives these words. To be called when the program starts, before other threads
/// are: it ends the validity of every view that text() has given.
void useTranslation(Translation translation);

/// The words in use for that text: a translation's, or English.
std::string_view wordsInUse(const Text& text);

}  // namespace korvel
