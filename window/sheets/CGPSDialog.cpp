#include "window/sheets/CGPSDialog.h"

#include <QPushButton>

#include "config/texts/SheetTexts.h"
#include "receiver/PortSettings.h"
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
    for (const int baud : {1200, 2400, 4800, 9600, 14400, 19200, 38400, 57600, 115200})
        baud_.addItem(QString::number(baud), baud);
    for (QWidget* row : std::initializer_list<QWidget*>{&search_, &fixed_, &port_, &baud_, &hint_,
                                                        &talkers_, &status_, &trace_})
        addRow(*row);
    setPreferredWidth(10 * kRowPixels);
    status_.setWordWrap(true);
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

    const auto enable = [this] {
        port_.setEnabled(fixed_.isChecked());
        baud_.setEnabled(fixed_.isChecked());
        buttons()
            .button(QDialogButtonBox::Ok)
            ->setEnabled(search_.isChecked() || !port_.currentText().trimmed().isEmpty());
    };
    connect(&fixed_, &QRadioButton::toggled, this, enable);
    connect(&port_, &QComboBox::editTextChanged, this, enable);
    fill(settings);
    enable();
}

void CGPSDialog::fill(std::string_view settings) {
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

std::string CGPSDialog::settings() const {
    if (search_.isChecked())
        return {};
    return PortSettings::of(port_.currentText().trimmed().toStdString(),
                            baud_.currentData().toString().toStdString())
        .format();
}

}  // namespace korvel
