#include "cockpit/Checklists.h"

#include <algorithm>
#include <utility>

#include "platform/FileIo.h"
#include "platform/Folders.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::size_t kLongestFile = std::size_t{256} << 10U;

}  // namespace

void Checklists::load(std::span<const std::filesystem::path> folders) {
    const std::vector<State> former = std::exchange(lists_, {});
    for (const std::filesystem::path& folder : folders) {
        if (folder.empty() || !lists_.empty())
            continue;
        for (const auto& file : findFiles(folder / "checklists", "*.txt")) {
            const auto text = readWholeFile(file, kLongestFile);
            if (!text)
                continue;
            State state{.list = Checklist::read(textOf(file.stem()), *text), .checked = {}};
            state.checked.resize(state.list.rows.size());
            for (const State& other : former)
                if (other.list == state.list)
                    state.checked = other.checked;
            lists_.push_back(std::move(state));
        }
    }
}

void Checklists::setChecked(std::size_t which, std::size_t row, bool on) {
    State& state = lists_[which];
    if (!state.list.rows[row].heading)
        state.checked[row] = on;
}

std::optional<std::size_t> Checklists::nextOpen(std::size_t which, std::size_t row) const {
    const State& state = lists_[which];
    const std::size_t count = state.list.rows.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t here = (row + i) % count;
        if (!state.list.rows[here].heading && !state.checked[here])
            return here;
    }
    return std::nullopt;
}

std::size_t Checklists::items(std::size_t which) const {
    return static_cast<std::size_t>(
        std::ranges::count(lists_[which].list.rows, false, &Checklist::Row::heading));
}

std::size_t Checklists::open(std::size_t which) const {
    return items(which) - static_cast<std::size_t>(std::ranges::count(lists_[which].checked, true));
}

void Checklists::reset(std::size_t which) {
    std::fill(lists_[which].checked.begin(), lists_[which].checked.end(), false);
}

}  // namespace korvel
