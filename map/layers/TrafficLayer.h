#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/TrafficView.h"
#include "map/layers/Layer.h"

namespace korvel {

/// Other aircraft: where each of them is by now, whither it flies in a minute, and how much higher
/// it is in hundreds of feet, with an arrow where it climbs or descends. Who stands on the ground
/// is small and without a word.
class TrafficLayer final : public Layer {
 public:
    using Layer::Layer;

    static constexpr std::size_t kMostShown = 60;

    struct Mark {
        Point at{};
        std::optional<double> angleDeg{};      ///< on the screen
        std::optional<Segment> minuteAhead{};  ///< within the view
        TrafficLevel level = TrafficLevel::Far;
        bool old = false;  ///< reckoned on for long
        bool airborne = true;
        std::string words{};
        Point wordsAt{};  ///< their left end
        int trend = 0;    ///< 1 climbs, -1 descends
    };

    void layOut(const TextMeasure& texts, LabelRoom& room) override;
    void paint(Canvas& canvas) const override;

    [[nodiscard]] const std::vector<Mark>& marks() const { return marks_; }

 private:
    void place(Mark& mark, const TextMeasure& texts, LabelRoom& room) const;
    void paintSymbol(Canvas& canvas, const Mark& mark) const;
    void paintTrend(Canvas& canvas, const Mark& mark) const;
    [[nodiscard]] ColorValue colorOf(TrafficLevel level) const;
    [[nodiscard]] TextStyle style(ColorValue ink) const;
    [[nodiscard]] double size() const { return view().textPx * 0.75; }
    [[nodiscard]] double size(const Mark& mark) const {
        return mark.airborne ? size() : 0.6 * size();
    }

    std::vector<Mark> marks_;  ///< the most urgent first
};

/// The aircraft under a finger, the nearest of them; null for none. It leads into the list.
const TrafficView* trafficAt(const TrafficList& list, const MapProjection& projection, Point finger,
                             double radiusPx);

}  // namespace korvel
