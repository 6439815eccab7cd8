#include "window/commands/OptionCommands.h"

#include <algorithm>
#include <cstdint>

#include <climits>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/AircraftTexts.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/SheetTexts.h"
#include "config/texts/TrafficTexts.h"
#include "screen/Screen.h"
#include "window/sheets/AircraftSheet.h"
#include "window/sheets/AltimeterSheet.h"
#include "window/sheets/CGPSDialog.h"
#include "window/sheets/CPrefsSheet.h"
#include "window/sheets/FuelSheet.h"
#include "window/sheets/QuestionSheet.h"
#include "window/sheets/SimulatorSheet.h"
#include "window/sheets/TraceSheet.h"
#include "window/sheets/TrafficSheet.h"

namespace korvel {

template <class SheetType>
void OptionCommands::addSheet(QMenu& menu, Text name, const QList<QKeySequence>& keys) {
    host_.addCommand(
        menu, name, keys,
        [this] {
            host_.openSheet(std::make_unique<SheetType>(&host_.window(), host_.document()));
        });
}

void OptionCommands::addTo(QMenu& menu) {
    addSheet<SimulatorSheet>(menu, kCommandTexts.commandSimulator, {Qt::Key_S});
    simulating_ = &host_.addCommand(
        menu, kCommandTexts.commandSimulate, {QKeySequence(Qt::SHIFT | Qt::Key_S)},
        [this] { simulate(!host_.document().flight().simulator().running()); });
    simulating_->setCheckable(true);
    menu.addSeparator();
    host_.addCommand(menu, kCommandTexts.commandPrefs, {QKeySequence(Qt::CTRL | Qt::Key_P)},
                     [this] { openPrefs(); });
    addSheet<CMapDialog>(menu, kCommandTexts.commandMapOptions, {Qt::Key_O});
    addSheet<CViewPagesDialog>(menu, kCommandTexts.commandViewPages,
                               {QKeySequence(Qt::SHIFT | Qt::Key_N)});
    menu.addSeparator();
    host_.addCommand(menu, kCommandTexts.commandPort, {Qt::Key_G}, [this] { choosePort(); });
    addSheet<AltimeterSheet>(menu, kCommandTexts.commandAltimeter,
                             {QKeySequence(Qt::SHIFT | Qt::Key_A)});
    host_.addCommand(menu, kAircraftTexts.commandFuel, {Qt::Key_W}, [this] { enterFuel(); });
    addSheet<AircraftSheet>(menu, kAircraftTexts.command, {QKeySequence(Qt::SHIFT | Qt::Key_W)});
    addSheet<TrafficSheet>(menu, kTrafficTexts.command, {QKeySequence(Qt::SHIFT | Qt::Key_T)});
    const auto updateChecks = [this] {
        simulating_->setChecked(host_.document().flight().simulator().running());
    };
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, updateChecks);
}

void OptionCommands::enterFuel() {
    auto sheet = std::make_unique<FuelSheet>(&host_.window(), host_.document());
    sheet->onAircraft = [this] {
        host_.openSheet(std::make_unique<AircraftSheet>(&host_.window(), host_.document()));
    };
    host_.openSheet(std::move(sheet));
}

void OptionCommands::openPrefs() {
    auto sheet = std::make_unique<CPrefsSheet>(&host_.window(), host_.document());
    if (onPrefs)
        onPrefs(*sheet);
    host_.openSheet(std::move(sheet));
}

void OptionCommands::simulate(bool on) {
    CKorvelDoc& document = host_.document();
    if (on && document.hasLiveFix()) {
        auto question = std::make_unique<QuestionSheet>(&host_.window(), kSheetTexts.simulatorTitle,
                                                        kSheetTexts.simulatorHidesFix,
                                                        kSheetTexts.simulatorStart);
        question->onYes = [this] { startSimulator(); };
        host_.openSheet(std::move(question));
    } else if (on) {
        startSimulator();
    } else {
        document.flight().stopSimulator();
        host_.screen().say(std::string(text(kMessageTexts.simulatorOff)));
    }
    // The key has turned the check already, and the sheet starts and stops it behind its back.
    simulating_->setChecked(document.flight().simulator().running());
}

void OptionCommands::startSimulator() {
    host_.document().flight().startSimulator(host_.document().simulatorStart());
    simulating_->setChecked(true);
    host_.screen().say(std::string(text(kMessageTexts.simulatorOn)));
}

namespace {

/// How far the connection has come, and what has arrived.
std::string receiverStatus(CKorvelDoc& document) {
    const CockpitData& data = document.cockpitData();
    const std::string status =
        data.status.empty() ? formatText(kMessageTexts.portHasFix, {data.satsInUse}) : data.status;
    const CKorvelDoc::Arrivals arrivals = document.arrivals();
    const auto bytes = static_cast<int>(std::min<std::uint64_t>(arrivals.bytes, INT_MAX));
    const auto sentences = static_cast<int>(std::min<std::uint64_t>(arrivals.sentences, INT_MAX));
    return status + "\n" +
           (arrivals.sentenceAgeSec
                ? formatText(kSheetTexts.portArrivals, {bytes, sentences, *arrivals.sentenceAgeSec})
                : formatText(kSheetTexts.portNoSentence, {bytes}));
}

}  // namespace

void OptionCommands::choosePort() {
    CKorvelDoc& document = host_.document();
    auto sheet = std::make_unique<CGPSDialog>(&host_.window(), document.settings().port,
                                              document.receiverChoice());
    QObject::connect(
        sheet.get(), &QDialog::accepted, sheet.get(),
        [&document, chooser = sheet.get()] {
            Settings settings = document.settings();
            settings.port = chooser->settings();
            document.applySettings(settings);
            document.chooseReceiver(chooser->receiver());
        });
    QObject::connect(
        sheet.get(), &QDialog::rejected, sheet.get(),
        [&document, before = document.receiverChoice()] { document.chooseReceiver(before); });
    sheet->status = [&document] { return receiverStatus(document); };
    sheet->onConnect = [&document](const ReceiverChoice& choice) {
        document.chooseReceiver(choice);
    };
    sheet->onTrace = [this] {
        host_.openSheet(std::make_unique<TraceSheet>(&host_.window(), host_.document()));
    };
    host_.openSheet(std::move(sheet));
}

}  // namespace korvel
