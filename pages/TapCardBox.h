#pragma once

// The card beside a finger that tells of what it has tapped, as numbers and as a picture.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// What of the card a finger or a key can press.
enum class CardPart : std::uint8_t {
    Direct,
    Insert,
    Info,
    Next,  ///< to the next of several things under the finger
};

/// What the card says.
struct TapCardView {
    static constexpr std::size_t kFigures = 3;
    static constexpr std::size_t kButtons = 3;

    struct Figure {
        std::string_view header;
        std::string value;
    };
    struct Button {
        std::string_view word;
        bool enabled = true;
    };

    std::string ident;
    std::string name;      ///< beside it; empty for none
    bool expired = false;  ///< from a database whose date has passed
    std::array<Figure, kFigures> figures{};
    std::vector<std::string> lines{};
    std::array<Button, kButtons> buttons{};  ///< in the order of CardPart
    std::string step{};                      ///< "1/3"; empty when there is nothing else
    std::optional<CardPart> focus{};         ///< where the keys are
    std::optional<CardPart> pressed{};       ///< under a finger at this moment
    std::optional<Point> mark{};             ///< of what is told, in the page; none for no mark
};

/// How large the card is, which does not follow from the thing that it tells of at present:
/// stepping to the next one moves nothing.
struct TapCardSize {
    double textPx = 14;
    double buttonPx = 48;  ///< height of what is pressed
    double width = 0;
    std::size_t lines = 0;  ///< room for so many

    [[nodiscard]] double height() const;
};

/// The page that the card stands on.
struct TapCardRoom {
    double width = 0;
    double height = 0;
    Rect aircraft{};            ///< never covered; empty for none
    std::vector<Rect> boxes{};  ///< covered only when there is no other room
    Point finger{};             ///< what it has touched stays seen, if it can
};

/// As wide as its words want to be and the page has room for beside the aircraft, and with as many
/// of `lines` as the page is high enough for. `buttonPx` is at least 48.
TapCardSize tapCardSize(const TapCardRoom& room, double textPx, double buttonPx, std::size_t lines);

/// Where the card stands: near the finger, whole within the page, clear of the aircraft.
Rect placeTapCard(const TapCardRoom& room, const TapCardSize& size);

/// The card's parts on the page.
struct TapCardLayout {
    TapCardLayout(const Rect& whole, const TapCardSize& size, bool hasNext);

    /// What a finger presses.
    [[nodiscard]] std::optional<CardPart> partAt(Point finger) const;

    Rect card;
    Rect title;
    Rect next;  ///< empty when there is nothing else
    Rect figures;
    Rect lines;
    std::array<Rect, TapCardView::kButtons> buttons;
};

/// The card as it is to be painted.
struct ShownCard {
    TapCardView view;
    Rect area;
    TapCardSize size;
};

void paintTapCard(Canvas& canvas, const ShownCard& card, const MapColorCache& colors);

}  // namespace korvel
