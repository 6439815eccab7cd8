#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ground/obstacles/Obstacle.h"
#include "map/layers/Layer.h"

namespace korvel {

/// How an obstacle's top lies to the aircraft.
enum class ObstacleLevel : std::uint8_t {
    Below,    ///< or the aircraft's altitude is not known
    Caution,  ///< less than 1000 ft below the aircraft
    Danger,   ///< less than 100 ft below it, or higher
};

ObstacleLevel levelOf(const Obstacle& obstacle, std::optional<int> altitudeFt);

/// Masts, towers and the like, the tallest of them, with the height of their tops above sea. Those
/// that are near in height are painted with the words, over the names of places.
class ObstacleLayer final : public Layer {
 public:
    using Layer::Layer;

    static constexpr std::size_t kMostShown = 300;

    struct Mark {
        Point at{};  ///< its foot
        ObstacleLevel level = ObstacleLevel::Below;
        bool tall = false;  ///< 1000 ft above the ground and more
        std::string words{};
        Point wordsAt{};  ///< their left end
    };

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override { paintMarks(canvas, false); }
    void paintWords(Canvas& canvas) const override { paintMarks(canvas, true); }

    [[nodiscard]] const std::vector<Mark>& marks() const { return marks_; }

 private:
    void place(Mark& mark, const TextMeasure& texts, LabelRoom& room) const;
    void paintMarks(Canvas& canvas, bool near) const;
    void paintSymbol(Canvas& canvas, const Mark& mark) const;
    [[nodiscard]] ColorValue colorOf(ObstacleLevel level) const;
    [[nodiscard]] TextStyle style(ColorValue ink) const;
    [[nodiscard]] double height(const Mark& mark) const {
        return view().textPx * (mark.tall ? 1.3 : 0.85);
    }

    std::vector<Mark> marks_;  ///< the tallest first
};

/// The obstacle under a finger, the nearest of them; null for none. It leads into the list.
const Obstacle* obstacleAt(std::span<const Obstacle> obstacles, const MapProjection& projection,
                           Point finger, double radiusPx);

}  // namespace korvel
