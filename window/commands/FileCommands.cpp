#include "window/commands/FileCommands.h"

#include <algorithm>
#include <system_error>

#include <QDateTime>
#include <QDir>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/PlanExchange.h"
#include "config/Text.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/ExchangeTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/MessageTexts.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "screen/Screen.h"
#include "window/QtPath.h"
#include "window/QtText.h"
#include "window/sheets/Boxes.h"
#include "window/sheets/ImportSheet.h"
#include "window/sheets/TextSheet.h"

namespace korvel {
namespace {

constexpr int kFollowMs = 50;

/// As it stands where the system cannot tell what it is relative to.
std::filesystem::path absolutePath(const std::filesystem::path& path) {
    std::error_code unknown;
    std::filesystem::path absolute = std::filesystem::absolute(path, unknown);
    return unknown ? path : absolute;
}

}  // namespace

FileCommands::FileCommands(CommandHost& host) : host_(host), recent_(host.profile()) {
    QObject::connect(
        &timer_, &QTimer::timeout, &timer_, [this] { follow(); });
}

Flight& FileCommands::flight() { return host_.document().flight(); }

void FileCommands::addTo(QMenu& menu) {
    const auto nothing = [] {};
    const auto hasPlan = [this] { return flight().plan().hasPlan(); };
    host_.addCommand(
        menu, kCommandTexts.commandNewPlan, {QKeySequence(Qt::CTRL | Qt::Key_N)},
        [this] { removePlan(); });
    host_.addCommand(menu, kCommandTexts.commandOpenPlan, {QKeySequence(Qt::CTRL | Qt::Key_O)},
                     [this] { choosePlan(); });
    recentMenu_ = menu.addMenu(toQString(kCommandTexts.menuRecent));
    QObject::connect(
        recentMenu_, &QMenu::aboutToShow, recentMenu_, [this] { showRecent(); });
    greyUnless(menu,
               host_.addCommand(
                   menu, kCommandTexts.commandSavePlan, {QKeySequence(Qt::CTRL | Qt::Key_S)},
                   [this, nothing] { savePlan(nothing); }),
               hasPlan);
    greyUnless(menu,
               host_.addCommand(menu, kCommandTexts.commandSavePlanAs,
                                {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
                                [this, nothing] { savePlanAs(nothing); }),
               hasPlan);
    menu.addSeparator();
    host_.addCommand(
        menu, kCommandTexts.commandOpenTrack, {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)},
        [this] { chooseTrack(); });
    greyUnless(
        menu,
        host_.addCommand(menu, kCommandTexts.commandSaveTrack, {QKeySequence(Qt::CTRL | Qt::Key_T)},
                         [this, nothing] { saveTrackAs(nothing); }),
        [this] { return flight().track().track() != nullptr; });
    menu.addSeparator();
    greyUnless(menu,
               host_.addCommand(
                   menu, kExchangeTexts.exportPlan, {}, [this] { exportPlan(); }),
               hasPlan);
    greyUnless(menu,
               host_.addCommand(menu, kExchangeTexts.exportTrack, {}, [this] { exportTrack(); }),
               [this] { return flight().track().track() != nullptr; });
    menu.addSeparator();
}

void FileCommands::showRecent() {
    recentMenu_->clear();
    for (const auto& file : recent_.files()) {
        QAction* action = recentMenu_->addAction(shownPath(file));
        QObject::connect(action, &QAction::triggered, action, [this, file] { openFile(file); });
    }
    if (recent_.files().empty())
        recentMenu_->addAction(toQString(kCommandTexts.noRecentFiles))->setEnabled(false);
}

/// The message alone does not tell which file it is about.
void FileCommands::showFileError(const std::filesystem::path& path, const std::string& error) {
    host_.showError(textOf(path.filename()) + ":\n" + error);
}

// Plans

void FileCommands::removePlan() {
    const bool had = flight().plan().hasPlan();
    flight().plan().clear();
    host_.screen().say(std::string(text(had ? kFileTexts.planClosed : kMessageTexts.planMissing)));
}

void FileCommands::choosePlan() {
    choose(
        {kFileTexts.openPlanTitle, kExchangeTexts.openFilter},
        [this](const std::filesystem::path& path) { openFile(path); });
}

void FileCommands::openFile(const std::filesystem::path& path) {
    constexpr std::uintmax_t kReadAtOnce = std::uintmax_t{256} * 1024;
    std::error_code unknown;
    const auto size = std::filesystem::file_size(path, unknown);
    if (unknown || size <= kReadAtOnce)
        return takeOpened(path, FileOpening::read(path, host_.document().clock()));
    openAside(path);
}

void FileCommands::takeOpened(const std::filesystem::path& path, FileOpening::Found found) {
    if (found.content.plan || found.content.waypoints)
        return openForeign(path, std::move(found));
    if (found.content.track || found.isOwnTrack)
        return takeTrack(path, std::move(found.track));
    openOwnPlan(path);
}

void FileCommands::openOwnPlan(const std::filesystem::path& path) {
    withPlanSafe([this, path] {
        if (const std::string error = noteOpened(path, flight().plan().open(path)); !error.empty())
            return showFileError(path, error);
        host_.screen().say(formatText(kFileTexts.planOpened, {textOf(path.filename())}));
    });
}

std::string FileCommands::load(const std::filesystem::path& path) {
    return noteOpened(path, loadFound(path, FileOpening::read(path, host_.document().clock())));
}

std::string FileCommands::loadFound(const std::filesystem::path& path, FileOpening::Found found) {
    if (found.content.plan) {
        ActivePlan& plan = flight().plan();
        ImportedPlan imported = importPlan(std::move(found.bytes), 1,
                                           host_.document().charts().database(), plan.fixes());
        if (imported.error.empty())
            plan.replaceWhole(std::move(imported.entries));
        return imported.error;
    }
    if (found.content.track || found.isOwnTrack) {
        TrackLines lines = checked(std::move(found.track));
        return lines.error.empty() ? flight().track().show(std::move(lines)) : lines.error;
    }
    return flight().plan().open(path);
}

// Other programs' files

void FileCommands::openForeign(const std::filesystem::path& path, FileOpening::Found found) {
    auto sheet = std::make_unique<ImportSheet>(&host_.window(), host_.document(),
                                               textOf(path.filename()), found.bytes, found.content);
    const auto kept = std::make_shared<FileOpening::Found>(std::move(found));
    sheet->onPlan = [this, path](ImportedPlan plan) { takePlan(path, std::move(plan)); };
    sheet->onTrack = [this, path, kept] { takeTrack(path, std::move(kept->track)); };
    sheet->onWaypoints = [this, path, kept] { keepWaypoints(path, kept->bytes); };
    host_.openSheet(std::move(sheet));
}

void FileCommands::takePlan(const std::filesystem::path& path, ImportedPlan plan) {
    flight().plan().replaceWhole(std::move(plan.entries));
    recent_.add(absolutePath(path));
    host_.screen().say(formatText(kExchangeTexts.imported, {textOf(path.filename())}));
}

void FileCommands::keepWaypoints(const std::filesystem::path& path, const std::string& bytes) {
    const std::filesystem::path folder = documentsFolder();
    const KeptWaypoints kept = korvel::keepWaypoints(bytes, folder, textOf(path.stem()));
    if (!kept.error.empty())
        return showFileError(path, kept.error);
    recent_.add(absolutePath(path));
    if (onOtherFiles)
        onOtherFiles();
    std::string words = formatText(kExchangeTexts.waypointsKept,
                                   {static_cast<int>(kept.count), textOf(kept.file.filename())});
    if (kept.notes.empty())
        return host_.screen().say(words);
    words += "\n\n" + std::string(text(kExchangeTexts.waypointsChanged));
    for (const std::string& note : kept.notes)
        words += "\n" + note;
    host_.openSheet(std::make_unique<TextSheet>(
        &host_.window(), toQString(kExchangeTexts.importTitle), toQString(words)));
}

void FileCommands::exportPlan() {
    const std::string name = flight().plan().proposedFileName();
    if (name.empty())
        return host_.showError(std::string(text(kFileTexts.noPlanToSave)));
    choose({kExchangeTexts.exportPlanTitle, kExchangeTexts.planExportFilter, QStringLiteral("gpx"),
            shownPath(pathOf(name).stem())},
           [this](const std::filesystem::path& path) {
               tellExported(path, korvel::exportPlan(flight(), path, host_.document().clock()));
           });
}

void FileCommands::exportTrack() {
    if (!flight().track().track())
        return host_.showError(std::string(text(kFlightTexts.noTrackToSave)));
    const QString name = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmm"));
    choose({kExchangeTexts.exportTrackTitle, kExchangeTexts.trackExportFilter,
            QStringLiteral("gpx"), name},
           [this](const std::filesystem::path& path) {
               tellExported(path, korvel::exportTrack(flight(), path, host_.document().clock()));
           });
}

void FileCommands::tellExported(const std::filesystem::path& path, const std::string& error) {
    if (!error.empty())
        return host_.showError(error);
    host_.screen().say(formatText(kExchangeTexts.exported, {textOf(path.filename())}));
}

/// A file that could be opened is a recent one, another one is no longer.
std::string FileCommands::noteOpened(const std::filesystem::path& path, std::string error) {
    if (error.empty())
        recent_.add(absolutePath(path));
    else
        recent_.remove(absolutePath(path));
    return error;
}

void FileCommands::savePlan(const std::function<void()>& next) {
    ActivePlan& plan = flight().plan();
    if (plan.file().empty())
        return savePlanAs(next);
    savePlanTo(plan.file(), next);
}

void FileCommands::savePlanTo(const std::filesystem::path& path,
                              const std::function<void()>& next) {
    if (const std::string error = flight().plan().saveAs(path); !error.empty())
        return host_.showError(error);
    recent_.add(absolutePath(path));
    host_.screen().say(formatText(kFileTexts.planSaved, {textOf(path.filename())}));
    next();
}

void FileCommands::savePlanAs(const std::function<void()>& next) {
    const std::string name = flight().plan().proposedFileName();
    if (name.empty())
        return host_.showError(std::string(text(kFileTexts.noPlanToSave)));
    choose({kFileTexts.savePlanTitle, kFileTexts.planSaveFilter, QStringLiteral("fp"),
            QString::fromStdString(name)},
           [this, next](const std::filesystem::path& path) { savePlanTo(path, next); });
}

void FileCommands::withPlanSafe(const std::function<void()>& next) {
    if (!flight().plan().changed())
        return next();
    ask(
        kFileTexts.askSavePlan, [this](const auto& done) { savePlan(done); }, next);
}

/// Whether something is to be saved before `next` is done.
void FileCommands::ask(Text question, const std::function<void(const std::function<void()>&)>& save,
                       const std::function<void()>& next) {
    QMessageBox& box = openBox(host_.window(), QMessageBox::Question, toQString(question),
                               QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QObject::connect(&box, &QMessageBox::finished, &box, [save, next](int answer) {
        if (answer == QMessageBox::Save)
            save(next);
        else if (answer == QMessageBox::Discard)
            next();
    });
}

// Tracks

void FileCommands::chooseTrack() {
    choose(
        {kFileTexts.openTrackTitle, kExchangeTexts.openTrackFilter},
        [this](const std::filesystem::path& path) { openFile(path); });
}

/// A track without a point would be taken for one that cannot be seen.
TrackLines FileCommands::checked(TrackLines lines) {
    if (lines.error.empty() && lines.slots.empty())
        lines.error = text(kFileTexts.trackEmpty);
    return lines;
}

void FileCommands::openAside(const std::filesystem::path& path) {
    opening_ = std::make_unique<FileOpening>(path, host_.document().clock());
    progress_ = std::make_unique<LoadProgress>(host_.view(), [this] { opening_->breakOff(); });
    timer_.start(kFollowMs);
}

/// Whether the file has been read; what is in force stays until then.
void FileCommands::follow() {
    const std::string name = textOf(opening_->path().filename());
    if (!opening_->isFinished())
        return progress_->show(formatText(kFileTexts.openingFile, {name}), opening_->percent());
    timer_.stop();
    progress_.reset();
    const std::unique_ptr<FileOpening> finished = std::move(opening_);
    if (!finished->isBrokenOff())
        takeOpened(finished->path(), finished->take());
}

void FileCommands::takeTrack(const std::filesystem::path& path, TrackLines read) {
    const auto lines = std::make_shared<TrackLines>(checked(std::move(read)));
    if (const std::string error = noteOpened(path, lines->error); !error.empty())
        return showFileError(path, error);
    withTrackSafe([this, path, lines] { showTrack(path, std::move(*lines)); });
}

void FileCommands::showTrack(const std::filesystem::path& path, TrackLines lines) {
    const auto last = std::ranges::find_if(lines.slots.rbegin(), lines.slots.rend(),
                                           [](const auto& slot) { return slot.has_value(); });
    const auto end = last == lines.slots.rend() ? std::nullopt : std::optional((*last)->position);
    if (const std::string error = flight().track().show(std::move(lines)); !error.empty())
        return host_.showError(error);
    // Without an aircraft the map would show nothing of it.
    if (end && !host_.document().cockpitData().position)
        host_.screen().lookAt(*end);
    host_.screen().say(formatText(kFileTexts.trackOpened, {textOf(path.filename())}));
}

/// Does `next` at once, or when the pilot has saved what was recorded or wants it no more.
void FileCommands::withTrackSafe(const std::function<void()>& next) {
    if (!flight().track().isUnsaved())
        return next();
    ask(
        kFileTexts.askSaveTrack, [this](const auto& done) { saveTrackAs(done); }, next);
}

void FileCommands::saveTrackAs(const std::function<void()>& next) {
    if (!flight().track().track())
        return host_.showError(std::string(text(kFlightTexts.noTrackToSave)));
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmm'.trk'"));
    choose({kFileTexts.saveTrackTitle, kFileTexts.trackFilter, QStringLiteral("trk"), name},
           [this, next](const std::filesystem::path& path) {
               if (const std::string error = flight().track().saveTrack(path); !error.empty())
                   return host_.showError(error);
               recent_.add(absolutePath(path));
               host_.screen().say(formatText(kFileTexts.planSaved, {textOf(path.filename())}));
               next();
           });
}

/// Beside the plan that is open, else where the pilot's documents are.
QString FileCommands::startFolder(const FileQuestion& question) {
    const std::filesystem::path& plan = flight().plan().file();
    if (question.title == kFileTexts.savePlanTitle && !plan.empty())
        return shownPath(absolutePath(plan).parent_path());
    const std::filesystem::path documents = documentsFolder();
    return documents.empty() ? QDir::homePath() : shownPath(documents);
}

void FileCommands::choose(const FileQuestion& question,
                          const std::function<void(const std::filesystem::path&)>& chosen) {
    auto* dialog = new QFileDialog(&host_.window(), toQString(question.title),
                                   startFolder(question), toQString(question.filter));
    const bool saves = !question.suffix.isEmpty();
    dialog->setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(question.suffix);
    if (saves)
        dialog->selectFile(question.proposal);
    // "GPX (*.gpx)" that is chosen gives the ending that is not typed.
    QObject::connect(
        dialog, &QFileDialog::filterSelected, dialog,
        [dialog](const QString& filter) {
            const qsizetype dot = filter.lastIndexOf(QLatin1Char('.'));
            if (dialog->acceptMode() == QFileDialog::AcceptSave && dot >= 0)
                dialog->setDefaultSuffix(filter.mid(dot + 1).chopped(1));
        });
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [chosen](const QString& name) { chosen(toPath(name)); });
    openFileDialog(*dialog);
}

}  // namespace korvel
