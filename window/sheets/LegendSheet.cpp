#include "window/sheets/LegendSheet.h"

#include <QPainter>

#include "config/texts/LegendTexts.h"
#include "map/MapLegend.h"
#include "qtpaint/QtCanvas.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kRowHeight = 38;
constexpr double kTextPx = 17;

class LegendPicture final : public QWidget {
 public:
    explicit LegendPicture(const CAirportSheet::Look& look) : look_(look) {
        setFixedHeight(static_cast<int>(mapLegendRows()) * kRowHeight);
    }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QtCanvas canvas(painter, look_.labels,
                        {0, 0, static_cast<double>(width()), static_cast<double>(height())});
        paintMapLegend(canvas, look_.colors, kTextPx);
    }

 private:
    CAirportSheet::Look look_;
};

}  // namespace

LegendSheet::LegendSheet(QWidget* parent, const CAirportSheet::Look& look)
    : Sheet(parent, toQString(kLegendTexts.title), QDialogButtonBox::Close),
      picture_(std::make_unique<LegendPicture>(look)) {
    column().addWidget(picture_.get());
    setPreferredWidth(12 * kRowPixels);
}

}  // namespace korvel
