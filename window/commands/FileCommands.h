#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <QFileDialog>
#include <QMenu>
#include <QTimer>

#include "cockpit/FileOpening.h"
#include "cockpit/RecentFiles.h"
#include "exchange/PlanImport.h"
#include "window/commands/CommandHost.h"
#include "window/sheets/LoadProgress.h"

namespace korvel {

class Flight;

/// The menu File: plans and tracks to and from files.
class FileCommands {
 public:
    /// Loads the databases anew, because there is one more.
    std::function<void()> onOtherFiles;

    /// The host must outlive this.
    explicit FileCommands(CommandHost& host);

    void addTo(QMenu& menu);
    /// Fills the list of recent files; call when the menu is about to show.
    void showRecent();

    /// Opens a plan or a track, of this program by its name and of another one by its content, as a
    /// drop or the command line does. A plan or a recorded track that would be lost is asked for
    /// first, and what another program's plan becomes here is shown first.
    void openFile(const std::filesystem::path& path);
    /// Opens it at once, whatever is lost; the message for the pilot, empty on success.
    [[nodiscard]] std::string load(const std::filesystem::path& path);

    /// Does `next` at once, or when the pilot has saved a changed plan or given it up.
    void withPlanSafe(const std::function<void()>& next);
    void choosePlan();
    /// Without a question: it can be taken back.
    void removePlan();

 private:
    void showFileError(const std::filesystem::path& path, const std::string& error);
    std::string noteOpened(const std::filesystem::path& path, std::string error);
    void savePlan(const std::function<void()>& next);
    void savePlanAs(const std::function<void()>& next);
    void savePlanTo(const std::filesystem::path& path, const std::function<void()>& next);
    void chooseTrack();
    void saveTrackAs(const std::function<void()>& next);
    void openAside(const std::filesystem::path& path);
    void follow();
    void takeOpened(const std::filesystem::path& path, FileOpening::Found found);
    void openOwnPlan(const std::filesystem::path& path);
    void openForeign(const std::filesystem::path& path, FileOpening::Found found);
    void takePlan(const std::filesystem::path& path, ImportedPlan plan);
    void takeTrack(const std::filesystem::path& path, TrackLines read);
    void keepWaypoints(const std::filesystem::path& path, const std::string& bytes);
    std::string loadFound(const std::filesystem::path& path, FileOpening::Found found);
    static TrackLines checked(TrackLines lines);
    void exportPlan();
    void exportTrack();
    void tellExported(const std::filesystem::path& path, const std::string& error);
    void withTrackSafe(const std::function<void()>& next);
    void ask(Text question, const std::function<void(const std::function<void()>&)>& save,
             const std::function<void()>& next);
    void showTrack(const std::filesystem::path& path, TrackLines lines);
    struct FileQuestion {
        Text title;
        Text filter;
        QString suffix{};    ///< of files to save; empty: one is opened
        QString proposal{};  ///< a bare name, so that nobody needs to type
    };
    QString startFolder(const FileQuestion& question);
    /// A dialog that goes with the window and calls `chosen` with one file.
    void choose(const FileQuestion& question,
                const std::function<void(const std::filesystem::path&)>& chosen);

    Flight& flight();

    CommandHost& host_;
    RecentFiles recent_;
    QMenu* recentMenu_ = nullptr;  ///< its parent menu's
    QTimer timer_;
    std::unique_ptr<FileOpening> opening_;
    std::unique_ptr<LoadProgress> progress_;  ///< of it
};

}  // namespace korvel
