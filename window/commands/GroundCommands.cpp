#include "window/commands/GroundCommands.h"

#include <utility>

#include "config/texts/GroundTexts.h"
#include "platform/Folders.h"
#include "window/QtPath.h"
#include "window/QtText.h"
#include "window/sheets/Boxes.h"
#include "window/sheets/TextSheet.h"

namespace korvel {
namespace {

constexpr int kFollowMs = 100;

}  // namespace

GroundCommands::GroundCommands(CommandHost& host) : host_(host) {
    QObject::connect(
        &timer_, &QTimer::timeout, &timer_, [this] { follow(); });
}

void GroundCommands::addTo(QMenu& menu) {
    host_.addCommand(
        menu, kGroundTexts.commandImport, {QKeySequence(Qt::CTRL | Qt::Key_G)},
        [this] { choose(); });
}

void GroundCommands::choose() {
    auto* dialog =
        new QFileDialog(&host_.window(), toQString(kGroundTexts.importTitle),
                        shownPath(documentsFolder()), toQString(kGroundTexts.importFilter));
    dialog->setFileMode(QFileDialog::ExistingFiles);
    QObject::connect(dialog, &QFileDialog::filesSelected, dialog, [this](const QStringList& names) {
        std::vector<std::filesystem::path> files;
        for (const QString& name : names)
            files.push_back(toPath(name));
        import(std::move(files));
    });
    openFileDialog(*dialog);
}

void GroundCommands::import(std::vector<std::filesystem::path> files) {
    progress_.reset();
    importing_ = std::make_unique<GroundImporting>(std::move(files), documentsFolder());
    progress_ = std::make_unique<LoadProgress>(host_.view(), [this] { importing_->breakOff(); });
    timer_.start(kFollowMs);
}

void GroundCommands::follow() {
    if (!importing_->isFinished()) {
        const GroundImporting::State state = importing_->state();
        return progress_->show(formatText(kGroundTexts.importing, {std::string_view(state.doing)}),
                               state.percent);
    }
    timer_.stop();
    progress_.reset();
    const std::unique_ptr<GroundImporting> finished = std::move(importing_);
    if (onOtherFiles)
        onOtherFiles();
    host_.openSheet(std::make_unique<TextSheet>(&host_.window(),
                                                toQString(kGroundTexts.importTitle),
                                                toQString(groundImportText(*finished))));
}

}  // namespace korvel
