#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "config/Checklist.h"

namespace korvel {

/// The pilot's checklists and what is checked of them. What is checked stays so when the lists are
/// read again, as long as their rows are the same. User-interface thread only.
class Checklists {
 public:
    /// Reads the lists ("*.txt") in the folders' subfolder "checklists", in the order of their
    /// names, the first folder that holds any alone: the example that comes with the program makes
    /// way for the pilot's own. A file that cannot be read is left out.
    void load(std::span<const std::filesystem::path> folders);

    [[nodiscard]] std::size_t count() const { return lists_.size(); }
    [[nodiscard]] const Checklist& list(std::size_t which) const { return lists_[which].list; }
    [[nodiscard]] bool isChecked(std::size_t which, std::size_t row) const {
        return lists_[which].checked[row];
    }
    /// Headings cannot be checked.
    void setChecked(std::size_t which, std::size_t row, bool on);
    /// The first item from `row` on, and then from the beginning, that is not checked.
    [[nodiscard]] std::optional<std::size_t> nextOpen(std::size_t which, std::size_t row) const;
    /// Items that are not checked yet.
    [[nodiscard]] std::size_t open(std::size_t which) const;
    [[nodiscard]] std::size_t items(std::size_t which) const;
    /// Nothing of it is checked any more.
    void reset(std::size_t which);

 private:
    struct State {
        Checklist list;
        std::vector<bool> checked;
    };

    std::vector<State> lists_;
};

}  // namespace korvel
