#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// A list of what is done before or in a flight.
struct Checklist {
    /// One row: an item to check, or, without a response and an item of its own, a heading.
    struct Row {
        std::string words{};     ///< "Fuel selector"
        std::string response{};  ///< "both"; empty for none
        bool heading = false;

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string title;  ///< never empty
    std::vector<Row> rows;

    /// A list as it is written: "[Before start]" is a heading, "Fuel selector: both" an item with
    /// its response, any other line an item without; "#" begins a remark. Whatever the text holds
    /// it is a list, of no more rows than a pilot could ever read and no unprintable characters.
    static Checklist read(std::string_view title, std::string_view text);

    friend bool operator==(const Checklist&, const Checklist&) = default;
};

}  // namespace korvel
