#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "cockpit/CockpitData.h"
#include "pages/TapCardBox.h"
#include "screen/TapThing.h"

namespace korvel {

/// The card that tells of what a finger has met: which of the things it shows, where it stands and
/// where the keys are on it. It stays where it is until the aircraft would come under it.
class TapCard {
 public:
    /// Type and height of what is pressed, pixels.
    struct Sizes {
        double textPx = 14;
        double buttonPx = 48;
    };

    /// Shows the first of the things, which are at least one; `byKey` puts the keys on it.
    void open(std::vector<TapThing> things, const TapCardRoom& room, const Sizes& sizes,
              bool byKey);
    void close() { things_.clear(); }
    [[nodiscard]] bool isOpen() const { return !things_.empty(); }

    /// Takes over a new situation: other aircraft move on, and what is gone goes.
    void follow(const CockpitData& data);
    /// Finds another place when the page has changed or the aircraft would be covered.
    void fit(const TapCardRoom& room, const Sizes& sizes);

    /// The thing that is shown; only while the card is open.
    [[nodiscard]] const TapThing& thing() const { return things_.at(shown_); }
    /// To the next of several things, around.
    void step(int by);
    /// To the next part that can be pressed, around.
    void moveFocus(int by, const CockpitData& data);
    [[nodiscard]] std::optional<CardPart> focus() const { return focus_; }
    /// Whether pressing it does something.
    [[nodiscard]] bool canPress(CardPart part, const CockpitData& data) const;

    [[nodiscard]] const Rect& area() const { return area_; }
    [[nodiscard]] const TapCardSize& size() const { return size_; }
    [[nodiscard]] TapCardLayout layout() const { return {area_, size_, things_.size() > 1}; }
    /// A finger is on this part at present, or on none.
    void press(std::optional<CardPart> part) { pressed_ = part; }
    /// Only while it is open. `mark` is where the thing is on the page, if the page shows it.
    [[nodiscard]] ShownCard shown(const CockpitData& data, std::optional<Point> mark) const;

 private:
    [[nodiscard]] TapCardView view(const CockpitData& data) const;
    void place(const TapCardRoom& room, const Sizes& sizes);
    [[nodiscard]] std::size_t mostLines() const;

    std::vector<TapThing> things_;  ///< none: the card is closed
    std::size_t shown_ = 0;
    std::optional<CardPart> focus_;
    std::optional<CardPart> pressed_;
    TapCardSize size_;
    Rect area_;
    double pageWidth_ = 0;
    double pageHeight_ = 0;
};

}  // namespace korvel
