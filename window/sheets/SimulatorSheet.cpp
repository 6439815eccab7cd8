#include "window/sheets/SimulatorSheet.h"

#include <algorithm>
#include <set>
#include <utility>

#include <QHBoxLayout>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/SheetTexts.h"
#include "navdb/records/AirportRecord.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kStateMs = 500;
constexpr int kHeadingStep = 5;
constexpr int kSpeedStep = 10;
constexpr int kAltitudeStep = 500;
constexpr int kWindStep = 5;

}  // namespace

SimulatorSheet::SimulatorSheet(QWidget* parent, CKorvelDoc& document)
    : Sheet(parent, toQString(kSheetTexts.simulatorTitle), QDialogButtonBox::Close),
      document_(document) {
    form_.setSpacing(6);
    column().addLayout(&form_);
    form_.setRowWrapPolicy(QFormLayout::WrapLongRows);
    addPlaces();
    addNumber(latitude_, kSheetTexts.simulatorLatitude, 0);
    addNumber(longitude_, kSheetTexts.simulatorLongitude, 0);
    addNumber(heading_, kSheetTexts.simulatorHeading, kHeadingStep);
    addNumber(speed_, kSheetTexts.simulatorSpeed, kSpeedStep);
    addNumber(altitude_, kSheetTexts.simulatorAltitude, kAltitudeStep);
    addNumber(windFrom_, kSheetTexts.simulatorWindFrom, kHeadingStep);
    addNumber(windSpeed_, kSheetTexts.simulatorWindSpeed, kWindStep);
    addSwitches();
    addNote(message_);
    startStop_.setMinimumSize(3 * kRowPixels, kRowPixels);
    buttons().addButton(&startStop_, QDialogButtonBox::ActionRole);
    startStop_.setDefault(true);
    connect(&startStop_, &QPushButton::clicked, this, [this] { startOrStop(); });

    const Simulator& simulator = document.flight().simulator();
    SimulatorStart start = document.simulatorStart();
    if (simulator.running())
        start = {.position = simulator.position(),
                 .headingMag = simulator.headingMag(),
                 .speedKt = simulator.speedKt(),
                 .altitudeFt = simulator.altitudeFt(),
                 .wind = simulator.wind(),
                 .followsPlan = simulator.followsPlan()};
    follows_.setChecked(start.followsPlan);
    offer(start);
    offered_ = entered();
    setPreferredWidth(13 * kRowPixels);
    connect(&timer_, &QTimer::timeout, this, [this] { showState(); });
    timer_.start(kStateMs);
    showState();
}

/// Places to start at besides the typed ones.
void SimulatorSheet::addPlaces() {
    place_.setPlaceholderText(toQString(kSheetTexts.simulatorAt));
    place_.setAccessibleName(toQString(kSheetTexts.simulatorAt));
    place_.setMinimumHeight(kRowPixels);
    connect(&place_, &QLineEdit::editingFinished, this, [this] { (void)startAtNamed(); });
    auto* row = new QHBoxLayout;  // the form's
    row->addWidget(&place_);
    for (QPushButton* button : {&planStart_, &here_}) {
        button->setAutoDefault(false);
        button->setMinimumSize(2 * kRowPixels, kRowPixels);
        row->addWidget(button);
    }
    here_.setText(toQString(kSheetTexts.simulatorHere));
    connect(&here_, &QPushButton::clicked, this, [this] {
        const CockpitData& known = document_.cockpitData();
        if (known.lastPosition)
            choose(*known.lastPosition, known.seaAltitudeFt());
    });
    planStart_.setText(toQString(kSheetTexts.simulatorPlanStart));
    connect(&planStart_, &QPushButton::clicked, this, [this] {
        if (const auto& plan = document_.flight().plan().entries(); !plan.empty())
            choose(plan.front().position(), elevationOf(*plan.front().record));
    });
    form_.addRow(row);
}

/// In place of what was typed.
void SimulatorSheet::choose(GeoPoint place, std::optional<std::int32_t> altitudeFt) {
    place_.clear();
    named_.clear();
    message_.clear();
    offer(document_.simulatorStart(place, altitudeFt));
}

/// Shows the start at the place that was typed last, once. False when there is no such place,
/// which is then said.
bool SimulatorSheet::startAtNamed() {
    const std::string identifier = place_.text().trimmed().toUpper().toStdString();
    if (std::exchange(named_, identifier) == identifier || identifier.empty())
        return true;
    const DatabaseRecord* const place =
        document_.charts().database().Find(identifier, document_.cockpitData().lastPosition);
    message_.setText(place != nullptr ? QString() : toQString(kFlightTexts.notFound));
    if (place == nullptr) {
        named_.clear();
        return false;
    }
    offer(document_.simulatorStart(place->position, elevationOf(*place)));
    return true;
}

/// What the pilot entered of speed and wind stays.
void SimulatorSheet::offer(const SimulatorStart& start) {
    const SimulatorForm form = SimulatorForm::of(start);
    latitude_.setText(toQString(form.latitude));
    longitude_.setText(toQString(form.longitude));
    heading_.setText(toQString(form.heading));
    altitude_.setText(toQString(form.altitude));
    if (speed_.text().isEmpty())
        speed_.setText(toQString(form.speed));
    if (windFrom_.text().isEmpty() && windSpeed_.text().isEmpty()) {
        windFrom_.setText(toQString(form.windFrom));
        windSpeed_.setText(toQString(form.windSpeed));
    }
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
            if (&edit == &windSpeed_)
                value = std::max(value, 0);
            if (&edit == &heading_ || &edit == &windFrom_)
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
    follows_.setText(toQString(kSheetTexts.simulatorFollows));
    follows_.setMinimumHeight(kRowPixels);
    connect(&follows_, &QCheckBox::toggled, this,
            [this](bool on) { document_.flight().simulator().setFollowsPlan(on); });
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
    form_.addRow(QString(), &follows_);
}

SimulatorForm SimulatorSheet::entered() const {
    return {.latitude = latitude_.text().toStdString(),
            .longitude = longitude_.text().toStdString(),
            .heading = heading_.text().toStdString(),
            .speed = speed_.text().toStdString(),
            .altitude = altitude_.text().toStdString(),
            .windFrom = windFrom_.text().toStdString(),
            .windSpeed = windSpeed_.text().toStdString()};
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
    start.followsPlan = follows_.isChecked();
    if (!startAtNamed() || !read(start))
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
    if (const SimulatorForm form = entered(); form.altitude != offered_.altitude) {
        simulator.setAltitude(wanted.altitudeFt);
        offered_.altitude = form.altitude;
    }
    simulator.setWind(wanted.wind);
}

void SimulatorSheet::showState() {
    const bool running = document_.flight().simulator().running();
    const bool asks = told_ && document_.hasLiveFix();
    startStop_.setText(toQString(running ? kSheetTexts.simulatorStop
                                 : asks  ? kSheetTexts.simulatorStartAnyway
                                         : kSheetTexts.simulatorStart));
    planStart_.setEnabled(!running && !document_.flight().plan().entries().empty());
    here_.setEnabled(!running && document_.cockpitData().lastPosition.has_value());
    for (QLineEdit* line : {&place_, &latitude_, &longitude_})
        line->setEnabled(!running);
    if (!running)
        return;
    // It steers by itself: what flies is what the fields show, but where the pilot types.
    const SimulatorForm flown =
        SimulatorForm::of({.position = document_.flight().simulator().position(),
                           .headingMag = document_.flight().simulator().headingMag(),
                           .altitudeFt = document_.flight().simulator().altitudeFt()});
    latitude_.setText(toQString(flown.latitude));
    longitude_.setText(toQString(flown.longitude));
    if (!heading_.hasFocus()) {
        heading_.setText(toQString(flown.heading));
        offered_.heading = flown.heading;
    }
    if (!altitude_.hasFocus()) {
        altitude_.setText(toQString(flown.altitude));
        offered_.altitude = flown.altitude;
    }
}

}  // namespace korvel
