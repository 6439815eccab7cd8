#include "window/commands/ChartCommands.h"

#include "base/Calendar.h"
#include "cockpit/CKorvelDoc.h"
#include "cockpit/ChartText.h"
#include "config/texts/ChartTexts.h"
#include "platform/Folders.h"
#include "screen/Screen.h"
#include "window/QtPath.h"
#include "window/QtText.h"
#include "window/sheets/Boxes.h"
#include "window/sheets/ChartSheet.h"

namespace korvel {
namespace {

constexpr int kFollowMs = 200;

}  // namespace

ChartCommands::ChartCommands(CommandHost& host) : host_(host) {
    QObject::connect(
        &timer_, &QTimer::timeout, &timer_, [this] { follow(); });
}

void ChartCommands::addTo(QMenu& menu) {
    host_.addCommand(
        menu, kChartTexts.commandCharts, {QKeySequence(Qt::SHIFT | Qt::Key_F5)},
        [this] { show(); });
}

void ChartCommands::show() {
    host_.openSheet(std::make_unique<ChartSheet>(
        &host_.window(), ChartSheet::Source{.words = [this] { return words(); },
                                            .compiling = [this] { return compiling_.get(); },
                                            .canTake = [this] { return canTake_; },
                                            .chooseFolder = [this] { choose(false); },
                                            .chooseZip = [this] { choose(true); },
                                            .take =
                                                [this] {
                                                    canTake_ = false;
                                                    outcome_.clear();
                                                    onTake();
                                                }}));
}

std::string ChartCommands::words() {
    const CKorvelDoc& document = host_.document();
    const std::string inUse = chartsText(document.charts(), dateNumber(document.cockpitData().now));
    return outcome_.empty() ? inUse : outcome_ + "\n" + inUse;
}

void ChartCommands::choose(bool isZip) {
    auto* dialog = new QFileDialog(
        &host_.window(), toQString(isZip ? kChartTexts.selectZip : kChartTexts.selectFolder),
        shownPath(documentsFolder()), toQString(kChartTexts.zipFilter));
    dialog->setFileMode(isZip ? QFileDialog::ExistingFile : QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly, !isZip);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [this](const QString& name) { begin(toPath(name)); });
    openFileDialog(*dialog);
}

void ChartCommands::begin(const std::filesystem::path& download) {
    outcome_.clear();
    canTake_ = false;
    compiling_ = std::make_unique<ChartCompiling>(download, documentsFolder());
    timer_.start(kFollowMs);
}

void ChartCommands::follow() {
    if (!compiling_ || !compiling_->isFinished())
        return;
    timer_.stop();
    outcome_ = compiledText(*compiling_);
    canTake_ = compiling_->result().error.empty();
    compiling_.reset();
    if (canTake_)
        host_.screen().say(formatText(kChartTexts.ready, {text(kChartTexts.title)}));
}

}  // namespace korvel
