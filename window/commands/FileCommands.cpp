#include "window/commands/FileCommands.h"

#include <algorithm>
#include <system_error>

#include <QDateTime>
#include <QDir>
#include <QMessageBox>

#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/MessageTexts.h"
#include "platform/Folders.h"
#include "screen/Screen.h"
#include "window/QtText.h"

namespace korvel {
namespace {

std::filesystem::path toPath(const QString& name) { return {name.toStdU16String()}; }

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

/// As it stands where the system cannot tell what it is relative to.
std::filesystem::path absolutePath(const std::filesystem::path& path) {
    std::error_code unknown;
    std::filesystem::path absolute = std::filesystem::absolute(path, unknown);
    return unknown ? path : absolute;
}

bool isTrack(const std::filesystem::path& path) {
    return toQString(path).endsWith(QLatin1String(".trk"), Qt::CaseInsensitive);
}

}  // namespace

FileCommands::FileCommands(CommandHost& host) : host_(host), recent_(host.profile()) {}

Flight& FileCommands::flight() { return host_.document().flight(); }

void FileCommands::addTo(QMenu& menu) {
    const auto nothing = [] {};
    const auto hasPlan = [this] { return flight().plan().hasPlan(); };
    host_.addCommand(
        menu, kCommandTexts.commandNewPlan, {QKeySequence(Qt::CTRL | Qt::Key_N)},
        [this] { withPlanSafe([this] { newPlan(); }); });
    host_.addCommand(menu, kCommandTexts.commandOpenPlan, {QKeySequence(Qt::CTRL | Qt::Key_O)},
                     [this] { choosePlan(); });
    recentMenu_ = menu.addMenu(korvel::toQString(kCommandTexts.menuRecent));
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
    greyUnless(menu,
               host_.addCommand(menu, kCommandTexts.commandSaveTrack,
                                {QKeySequence(Qt::CTRL | Qt::Key_T)}, [this] { saveTrackAs(); }),
               [this] { return flight().track().track() != nullptr; });
    menu.addSeparator();
}

void FileCommands::showRecent() {
    recentMenu_->clear();
    for (const auto& file : recent_.files()) {
        QAction* action = recentMenu_->addAction(toQString(file));
        QObject::connect(action, &QAction::triggered, action, [this, file] { openFile(file); });
    }
    if (recent_.files().empty())
        recentMenu_->addAction(korvel::toQString(kCommandTexts.noRecentFiles))->setEnabled(false);
}

/// The message alone does not tell which file it is about.
void FileCommands::showFileError(const std::filesystem::path& path, const std::string& error) {
    host_.showError(path.filename().string() + ":\n" + error);
}

// Plans

void FileCommands::newPlan() {
    const bool had = flight().plan().hasPlan();
    flight().plan().clear();
    host_.screen().say(std::string(text(had ? kFileTexts.planClosed : kMessageTexts.planMissing)));
}

void FileCommands::choosePlan() {
    choose(
        {kFileTexts.openPlanTitle, kFileTexts.planFilter},
        [this](const std::filesystem::path& path) { openFile(path); });
}

void FileCommands::openFile(const std::filesystem::path& path) {
    if (isTrack(path))
        return openTrack(path);
    withPlanSafe([this, path] {
        if (const std::string error = openPlan(path); !error.empty())
            return showFileError(path, error);
        host_.screen().say(formatText(kFileTexts.planOpened, {path.filename().string()}));
    });
}

std::string FileCommands::load(const std::filesystem::path& path) {
    return isTrack(path) ? loadTrack(path) : openPlan(path);
}

std::string FileCommands::openPlan(const std::filesystem::path& path) {
    std::string error = flight().plan().open(path);
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
    host_.screen().say(formatText(kFileTexts.planSaved, {path.filename().string()}));
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
    auto* box = new QMessageBox(QMessageBox::Question, korvel::toQString(kCommandTexts.programName),
                                korvel::toQString(kFileTexts.askSavePlan),
                                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                &host_.window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QMessageBox::finished, box, [this, next](int answer) {
        if (answer == QMessageBox::Save)
            savePlan(next);
        else if (answer == QMessageBox::Discard)
            next();
    });
    box->open();
}

// Tracks

void FileCommands::chooseTrack() {
    choose(
        {kFileTexts.openTrackTitle, kFileTexts.trackFilter},
        [this](const std::filesystem::path& path) { openTrack(path); });
}

std::string FileCommands::loadTrack(const std::filesystem::path& path) {
    TrackRecorder& recorder = flight().track();
    std::string error = recorder.openTrack(path);
    if (error.empty() && recorder.track()->read()->slots.empty())
        error = text(kFileTexts.trackEmpty);
    return error;
}

void FileCommands::openTrack(const std::filesystem::path& path) {
    if (const std::string error = loadTrack(path); !error.empty())
        return showFileError(path, error);
    host_.screen().say(formatText(kFileTexts.trackOpened, {path.filename().string()}));
}

void FileCommands::saveTrackAs() {
    if (!flight().track().track())
        return host_.showError(std::string(text(kFlightTexts.noTrackToSave)));
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmm'.trk'"));
    choose({kFileTexts.saveTrackTitle, kFileTexts.trackFilter, QStringLiteral("trk"), name},
           [this](const std::filesystem::path& path) {
               if (const std::string error = flight().track().saveTrack(path); !error.empty())
                   return host_.showError(error);
               host_.screen().say(formatText(kFileTexts.planSaved, {path.filename().string()}));
           });
}

/// Beside the plan that is open, else where the pilot's documents are.
QString FileCommands::startFolder(const FileQuestion& question) {
    const std::filesystem::path& plan = flight().plan().file();
    if (question.title == kFileTexts.savePlanTitle && !plan.empty())
        return toQString(absolutePath(plan).parent_path());
    const std::filesystem::path documents = documentsFolder();
    return documents.empty() ? QDir::homePath() : toQString(documents);
}

void FileCommands::choose(const FileQuestion& question,
                          const std::function<void(const std::filesystem::path&)>& chosen) {
    auto* dialog = new QFileDialog(&host_.window(), korvel::toQString(question.title),
                                   startFolder(question), korvel::toQString(question.filter));
    const bool saves = !question.suffix.isEmpty();
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(question.suffix);
    if (saves)
        dialog->selectFile(question.proposal);
    // As large as the window: rows and buttons are large, too.
    dialog->resize(host_.window().size());
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [chosen](const QString& name) { chosen(toPath(name)); });
    dialog->open();
}

}  // namespace korvel
