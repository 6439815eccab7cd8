#include "window/commands/DatabaseCommands.h"

#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/SheetTexts.h"
#include "platform/Folders.h"
#include "screen/Screen.h"
#include "window/QtText.h"
#include "window/sheets/TextSheet.h"

namespace korvel {
namespace {

constexpr int kFollowMs = 100;

}  // namespace

DatabaseCommands::DatabaseCommands(CommandHost& host) : host_(host) {
    QObject::connect(
        &timer_, &QTimer::timeout, &timer_, [this] { follow(); });
}

DatabaseCommands::~DatabaseCommands() { host_.document().onOtherDatabases = nullptr; }

void DatabaseCommands::addToFile(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandReload, {Qt::Key_F5},
        [this] {
            host_.document().ground().startOpening(dataFolders());
            host_.screen().databasesChanged();
            load([this](bool changed) {
                if (changed)
                    tellResult();
            });
        });
}

void DatabaseCommands::addToHelp(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandLoadReport, {QKeySequence(Qt::SHIFT | Qt::Key_F2)},
        [this] { showReport(); });
}

void DatabaseCommands::load(std::function<void(bool changed)> whenDone) {
    Charts& charts = host_.document().charts();
    changed_ = false;
    // What waits for a loading that is broken off here waits on.
    whenDone_ = [before = std::move(whenDone_), next = std::move(whenDone)](bool changed) {
        if (before)
            before(changed);
        next(changed);
    };
    host_.document().onOtherDatabases = [this] {
        changed_ = true;
        host_.screen().databasesChanged();
    };
    progress_ = std::make_unique<LoadProgress>(host_.view(), [&charts] { charts.breakOff(); });
    charts.startLoading(dataFolders());
    timer_.start(kFollowMs);
}

void DatabaseCommands::follow() {
    if (const auto state = host_.document().charts().loading())
        return progress_->show(state->text, state->percent);
    timer_.stop();
    progress_.reset();
    if (const auto done = std::exchange(whenDone_, nullptr))
        done(changed_);
}

void DatabaseCommands::tellResult() {
    const Charts& charts = host_.document().charts();
    for (const DatabaseLoader::OpenedFile& file : charts.openedFiles())
        if (!file.error.empty())
            return showReport();
    host_.screen().say(formatText(kMessageTexts.databasesLoaded,
                                  {static_cast<int>(charts.database().files().size())}));
}

void DatabaseCommands::showReport() {
    host_.openSheet(
        std::make_unique<TextSheet>(&host_.window(), toQString(kSheetTexts.loadReportTitle),
                                    toQString(loadReportText(host_.document(), dataFolders()))));
}

}  // namespace korvel
