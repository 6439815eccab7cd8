#include "window/sheets/SimulatorSheet.h"

#include <set>
#include <utility>

#include <QHBoxLayout>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kStateMs = 500;
constexpr int kHeadingStep = 5;
constexpr int kSpeedStep = 10;
constexpr int kAltitudeStep = 500;

}  // namespace

SimulatorSheet::SimulatorSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.simulatorTitle), QDialogButtonBox::Close),
      document_(document) {
    form_.setSpacing(6);
    column().addLayout(&form_);
    form_.setRowWrapPolicy(QFormLayout::WrapLongRows);
    addNumber(latitude_, kSheetTexts.simulatorLatitude, 0);
    addNumber(longitude_, kSheetTexts.simulatorLongitude, 0);
    addNumber(heading_, kSheetTexts.simulatorHeading, kHeadingStep);
    addNumber(speed_, kSheetTexts.simulatorSpeed, kSpeedStep);
    addNumber(altitude_, kSheetTexts.simulatorAltitude, kAltitudeStep);
    addSwitches();
    addNote(message_);
    startStop_.setMinimumSize(3 * kRowPixels, kRowPixels);
    buttons().addButton(&startStop_, QDialogButtonBox::ActionRole);
    startStop_.setDefault(true);
    connect(&startStop_, &QPushButton::clicked, this, [this] { startOrStop(); });

    offered_ = SimulatorForm::of(document.simulatorStart());
    const Simulator& simulator = document.flight().simulator();
    if (simulator.running())
        offered_ = SimulatorForm::of({.position = simulator.position(),
                                      .headingMag = simulator.headingMag(),
                                      .speedKt = simulator.speedKt(),
                                      .altitudeFt = simulator.altitudeFt()});
    latitude_.setText(toQString(offered_.latitude));
    longitude_.setText(toQString(offered_.longitude));
    heading_.setText(toQString(offered_.heading));
    speed_.setText(toQString(offered_.speed));
    altitude_.setText(toQString(offered_.altitude));
    setPreferredWidth(13 * kRowPixels);
    connect(&timer_, &QTimer::timeout, this, [this] { showState(); });
    timer_.start(kStateMs);
    showState();
}

/// A row to type in. With a step it also has buttons for less and more, and counts at once while
/// the aircraft flies.
void SimulatorSheet::addNumber(QLineEdit& edit, Text name, int step) {
    edit.setMinimumHeight(kRowPixels);
    edit.setAccessibleName(toQString(name));
    auto* row = new QHBoxLayout;  // the form's
    row->addWidget(&edit);
    for (const int by : {-step, step}) {
        if (step == 0)
            break;
        auto* button = new QPushButton(by < 0 ? QStringLiteral("−") : QStringLiteral("+"), this);
        button->setAutoDefault(false);
        button->setFixedSize(2 * kRowPixels, kRowPixels);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, &edit, by] {
            int value = ParseInt(edit.text().toStdString()) + by;
            constexpr int kFullCircleDeg = 360;
            if (&edit == &heading_)
                value = (value + kFullCircleDeg - 1) % kFullCircleDeg + 1;
            edit.setText(toQString(formatInt(value)));
            change();
        });
    }
    if (step != 0)
        connect(&edit, &QLineEdit::editingFinished, this, [this] { change(); });
    auto* label = new QLabel(toQString(name), this);
    label->setMinimumHeight(kRowPixels);
    form_.addRow(label, row);
}

void SimulatorSheet::addSwitches() {
    steering_.setText(toQString(kSheetTexts.simulatorSteering));
    steering_.setChecked(document_.flight().simulator().steering());
    steering_.setMinimumHeight(kRowPixels);
    connect(&steering_, &QCheckBox::toggled, this,
            [this](bool on) { document_.flight().simulator().setSteering(on); });
    const int current = document_.flight().timeFactor();  // may be any, by the command line
    for (const int factor : std::set{1, 2, 5, 10, 30, Flight::kFastestTime, current})
        timeFactor_.addItem(QStringLiteral("× %1").arg(factor), factor);
    timeFactor_.setCurrentIndex(timeFactor_.findData(current));
    timeFactor_.setMinimumHeight(kRowPixels);
    timeFactor_.setAccessibleName(toQString(kSheetTexts.simulatorTime));
    connect(&timeFactor_, &QComboBox::currentIndexChanged, this,
            [this] { document_.flight().setTimeFactor(timeFactor_.currentData().toInt()); });
    form_.addRow(toQString(kSheetTexts.simulatorTime), &timeFactor_);
    form_.addRow(QString(), &steering_);
}

SimulatorForm SimulatorSheet::entered() const {
    return {.latitude = latitude_.text().toStdString(),
            .longitude = longitude_.text().toStdString(),
            .heading = heading_.text().toStdString(),
            .speed = speed_.text().toStdString(),
            .altitude = altitude_.text().toStdString()};
}

bool SimulatorSheet::read(SimulatorStart& start) {
    const std::string error = entered().read(start);
    message_.setText(toQString(error));
    return error.empty();
}

void SimulatorSheet::startOrStop() {
    if (!document_.flight().simulator().running())
        return start();
    document_.flight().stopSimulator();
    timeFactor_.setCurrentIndex(0);
    message_.clear();
    showState();
}

void SimulatorSheet::start() {
    SimulatorStart start;
    if (!read(start))
        return;
    if (document_.hasLiveFix() && !std::exchange(told_, true)) {
        message_.setText(toQString(kSheetTexts.simulatorHidesFix));
        return showState();
    }
    const SimulatorForm form = entered();
    if (form.latitude != offered_.latitude || form.longitude != offered_.longitude) {
        Settings settings = document_.settings();
        settings.simLat = form.latitude;
        settings.simLon = form.longitude;
        document_.applySettings(settings);
    }
    document_.flight().startSimulator(start);
    document_.flight().setTimeFactor(timeFactor_.currentData().toInt());
    accept();
}

void SimulatorSheet::change() {
    Simulator& simulator = document_.flight().simulator();
    SimulatorStart wanted;
    if (!read(wanted) || !simulator.running())
        return;
    if (const SimulatorForm form = entered(); form.heading != offered_.heading) {
        simulator.setHeading(wanted.headingMag);
        offered_.heading = form.heading;
    }
    simulator.setSpeed(wanted.speedKt);
    simulator.setAltitude(wanted.altitudeFt);
}

void SimulatorSheet::showState() {
    const bool running = document_.flight().simulator().running();
    const bool asks = told_ && document_.hasLiveFix();
    startStop_.setText(toQString(running ? kSheetTexts.simulatorStop
                                 : asks  ? kSheetTexts.simulatorStartAnyway
                                         : kSheetTexts.simulatorStart));
    latitude_.setEnabled(!running);
    longitude_.setEnabled(!running);
    if (!running)
        return;
    // It steers by itself: what flies is what the fields show, but where the pilot types.
    const SimulatorForm flown =
        SimulatorForm::of({.position = document_.flight().simulator().position(),
                           .headingMag = document_.flight().simulator().headingMag()});
    latitude_.setText(toQString(flown.latitude));
    longitude_.setText(toQString(flown.longitude));
    if (!heading_.hasFocus()) {
        heading_.setText(toQString(flown.heading));
        offered_.heading = flown.heading;
    }
}

}  // namespace korvel
