#pragma once

#include <functional>

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include "pages/FieldStrip.h"
#include "pages/TouchBar.h"
#include "paint/MapColorCache.h"
#include "qtpaint/LabelCache.h"
#include "qtpaint/QtTextMeasure.h"
#include "screen/AttitudePicture.h"
#include "screen/Screen.h"
#include "screen/ScreenHand.h"

namespace korvel {

class CKorvelDoc;
class ColorScheme;
class ProfileFile;

/// The toolkit's side of the screen: hands it the events, ticks it (the timer runs from the end of
/// one tick to the next, so ticks never overlap), and paints it when something has changed.
class CKorvelView final : public QWidget {
 public:
    /// All outlive the view.
    CKorvelView(CKorvelDoc& document, ProfileFile& profile, const ColorScheme& scheme,
                LabelCache& labels);

    Screen& screen() { return screen_; }
    ScreenHand& hand() { return hand_; }

    /// Call after the colour scheme was reloaded.
    void schemeChanged();

    /// Called once, after the first painting.
    std::function<void()> onFirstPaint;

 protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

 private:
    void paintSoon();
    void fitScreen();
    void followHand();
    void paintPage(QPainter& painter, const CockpitData& shown);
    AttitudeView attitudeView();

    CKorvelDoc& document_;
    const ColorScheme& scheme_;
    LabelCache& labels_;
    MapColorCache colors_;

    QtTextMeasure letters_;

    Screen screen_;
    ScreenHand hand_{screen_};
    PagePainter pagePainter_{colors_};
    FieldStrip fieldStrip_{colors_};
    TouchBar touchBar_{colors_};
    AttitudePicture attitude_;
    QElapsedTimer attitudeClock_;
    QBasicTimer timer_;
    QBasicTimer attitudeTimer_;
    QBasicTimer handTimer_;
    bool painted_ = false;
};

}  // namespace korvel
