#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace korvel {

/// A number that takes up the whole text, read independently of the locale; a leading '+' is
/// accepted. Nothing for other text, an out-of-range number, "nan" and "inf".
std::optional<double> wholeDouble(std::string_view text);
std::optional<int> wholeInt(std::string_view text);

/// A latitude or longitude in degrees within its range, else nothing.
std::optional<double> latitudeDeg(std::string_view text);
std::optional<double> longitudeDeg(std::string_view text);
/// A magnetic variation in degrees, -180 to 180, else nothing.
std::optional<double> variationDeg(std::string_view text);

/// A line's words between spaces and tabs. One object serves a whole file, so that no line
/// allocates; the words point into the line.
class Fields {
 public:
    void split(std::string_view line);

    [[nodiscard]] std::size_t size() const { return words_.size(); }
    /// Word `i`, empty past the last one.
    [[nodiscard]] std::string_view operator[](std::size_t i) const {
        return i < words_.size() ? words_[i] : std::string_view{};
    }
    /// The line from word `i` to its end, spaces inside kept: names have them.
    [[nodiscard]] std::string_view from(std::size_t i) const;

 private:
    std::string_view line_;
    std::vector<std::string_view> words_;
};

}  // namespace korvel
