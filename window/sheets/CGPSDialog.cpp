#include "window/sheets/CGPSDialog.h"

#include <QPushButton>

#include "config/texts/SheetTexts.h"
#include "platform/SerialDevice.h"
#include "receiver/PortSettings.h"
#include "receiver/network/SourceAddress.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kOfferedPorts = 16;
constexpr int kUsualBaud = 9600;
constexpr int kStatusMs = 500;

}  // namespace

CGPSDialog::CGPSDialog(QWidget* parent, std::string_view settings, const ReceiverChoice& receiver)
    : Sheet(parent, toQString(kSheetTexts.portTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel) {
    search_.setText(toQString(kSheetTexts.portSearch));
    fixed_.setText(toQString(kSheetTexts.portChosen));
    port_.setEditable(true);
    hint_.setText(toQString(kSheetTexts.portHint));
    talkers_.setText(toQString(kSheetTexts.portTalkers));
    talkers_.setChecked(receiver.allTalkers);
    for (int number = 1; number <= kOfferedPorts; ++number)
        port_.addItem(QStringLiteral("COM%1").arg(number));
    for (const std::string& line : serialLinesWithNames())
        port_.addItem(QString::fromStdString(line));
    for (const int baud : {1200, 2400, 4800, 9600, 14400, 19200, 38400, 57600, 115200})
        baud_.addItem(QString::number(baud), baud);
    addRow(search_);
    addRow(fixed_);
    addRow({&port_, &baud_});
    addRow(hint_);
    addRow(network_);
    addRow({&source_, &connect_});
    addRow(talkers_);
    addNote(status_);
    addRow(trace_);
    setPreferredWidth(10 * kRowPixels);
    trace_.setText(toQString(kSheetTexts.portTrace));
    trace_.setAutoDefault(false);
    connect(
        &trace_, &QPushButton::clicked, this,
        [this] {
            if (onTrace)
                onTrace();
        });
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (status)
            status_.setText(toQString(status()));
    });
    timer_.start(kStatusMs);

    fill(settings);
    fillNetwork(receiver);
    for (const QRadioButton* choice : {&search_, &fixed_, &network_})
        connect(choice, &QRadioButton::toggled, this, [this] { enable(); });
    for (const QComboBox* box : {&port_, &source_})
        connect(box, &QComboBox::editTextChanged, this, [this] { enable(); });
    enable();
}

void CGPSDialog::fill(std::string_view settings) {
    portBefore_ = settings;
    const PortSettings current = PortSettings::parse(settings).value_or(PortSettings{});
    // What names no port and speed is no choice.
    const bool isChosen = !current.name().empty() && current.baud() > 0;
    search_.setChecked(!isChosen);
    fixed_.setChecked(isChosen);
    if (isChosen)
        port_.setCurrentText(QString::fromStdString(current.name()));
    const int baud = isChosen ? current.baud() : kUsualBaud;
    if (baud_.findData(baud) < 0)
        baud_.addItem(QString::number(baud), baud);
    baud_.setCurrentIndex(baud_.findData(baud));
}

void CGPSDialog::fillNetwork(const ReceiverChoice& receiver) {
    network_.setText(toQString(kSheetTexts.portNetwork));
    source_.setEditable(true);
    source_.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The usual ports of the usual devices.
    for (const char* example :
         {"tcp://192.168.10.1:2000", "udp://:10110", "gpsd://localhost:2947", "gdl90://:4000"})
        source_.addItem(QString::fromLatin1(example));
    connect_.setText(toQString(kSheetTexts.portConnect));
    connect_.setAutoDefault(false);
    if (!receiver.source.empty()) {
        source_.setCurrentText(QString::fromStdString(receiver.source));
        network_.setChecked(true);
    }
    connect(&connect_, &QPushButton::clicked, this, [this] {
        if (onConnect)
            onConnect(this->receiver());
    });
}

void CGPSDialog::enable() {
    const bool isSource = SourceAddress::parse(source_.currentText().toStdString()).has_value();
    port_.setEnabled(fixed_.isChecked());
    baud_.setEnabled(fixed_.isChecked());
    source_.setEnabled(network_.isChecked());
    connect_.setEnabled(network_.isChecked() && isSource);
    bool isWhole = true;
    if (fixed_.isChecked())
        isWhole = !port_.currentText().trimmed().isEmpty();
    else if (network_.isChecked())
        isWhole = isSource;
    buttons().button(QDialogButtonBox::Ok)->setEnabled(isWhole);
}

ReceiverChoice CGPSDialog::receiver() const {
    ReceiverChoice choice{.allTalkers = talkers_.isChecked()};
    if (network_.isChecked())
        choice.source = source_.currentText().trimmed().toStdString();
    return choice;
}

std::string CGPSDialog::settings() const {
    if (network_.isChecked())
        return portBefore_;
    if (search_.isChecked())
        return {};
    return PortSettings::of(port_.currentText().trimmed().toStdString(),
                            baud_.currentData().toString().toStdString())
        .format();
}

}  // namespace korvel
