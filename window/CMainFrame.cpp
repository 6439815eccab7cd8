#include "window/CMainFrame.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/FlightTexts.h"
#include "platform/Folders.h"
#include "platform/PathText.h"
#include "window/AppIcon.h"
#include "window/QtPath.h"
#include "window/QtText.h"
#include "window/SchemeStyle.h"
#include "window/WindowPlacement.h"
#include "window/sheets/AltimeterSheet.h"
#include "window/sheets/Boxes.h"
#include "window/sheets/FieldSheet.h"
#include "window/sheets/MenuSheet.h"
#include "window/sheets/TrafficSheet.h"

namespace korvel {
namespace {

// Of the letters in menus and sheets.
constexpr int kLargestLetters = 26;
constexpr int kLettersInWindow = 54;  // one below the other in a large one

}  // namespace

CMainFrame::CMainFrame(const FrameParts& parts)
    : parts_(parts),
      view_(parts.document, parts.profile, parts.scheme, parts.labels),
      file_(*this),
      navigate_(*this, [this] { file_.removePlan(); }),
      places_(*this, parts.labels, parts.scheme),
      books_(*this),
      databases_(*this),
      charts_(*this),
      ground_(*this),
      options_(*this),
      viewing_(*this),
      schemes_(*this, parts.scheme, parts.dataFiles),
      help_(*this, *menuBar()) {
    setWindowTitle(toQString(kCommandTexts.programName));
    setWindowIcon(appIcon(parts_.scheme));
    fitLetters();
    addCommands();
    fitMenuBar();
    setCentralWidget(&view_);
    setAcceptDrops(true);
    listenToScreen();
    listenToCommands();
    schemes_.showChosen();
    view_.setFocus();
}

void CMainFrame::listenToScreen() {
    screen().onLive = [this](bool live) {
        screenKeeper_.keep(live && isVisible());
        if (keepsState_)
            storeState();
    };
    ScreenHand& hand = view_.hand();
    hand.onTouch = [this](TouchCommand command) { runTouch(command); };
    hand.onPlanRow = [this](std::size_t row) { navigate_.openPlanRow(row); };
    hand.onField = [this](std::size_t field) { chooseField(field); };
    hand.onPlace = [this](const DatabaseRecord& record) { places_.open(record.Clone()); };
    hand.onMark = [this](GeoPoint where) { places_.mark(where); };
    hand.onTraffic = [this] { openSheet(std::make_unique<TrafficSheet>(this, parts_.document)); };
    hand.onNearestFilter = [this] { navigate_.chooseNearest(); };
    hand.onEmergency = [this] { navigate_.emergency(); };
    hand.onApproach = [this] { navigate_.approach(); };
}

/// One group's commands lead to another's.
void CMainFrame::listenToCommands() {
    places_.onApproach = [this](std::vector<LandingRunway> runways) {
        navigate_.approach(std::move(runways));
    };
    places_.onDirectTo = [this](const PlaceChoice& place) { navigate_.directTo(place); };
    schemes_.onShown = [this] { useScheme(); };
    help_.onColors = [this] { return schemes_.firstChoices(); };
    options_.onPrefs = [this](CPrefsSheet& prefs) { schemes_.offerIn(prefs); };
    viewing_.onMenuBar = [this] { fitMenuBar(); };
    help_.onPort = [this] { options_.choosePort(); };
    help_.onSimulator = [this] { options_.simulate(true); };
    help_.onPlan = [this] { file_.choosePlan(); };
    charts_.onTake = [this] { databases_.load([](bool) {}); };
    ground_.onOtherFiles = [this] {
        document().ground().startOpening(dataFolders());
        screen().databasesChanged();
    };
    file_.onOtherFiles = [this] { databases_.load([](bool) {}); };
}

/// A large window is looked at from further away.
void CMainFrame::fitLetters() {
    const int pixels = std::clamp(std::min(width(), height()) / kLettersInWindow,
                                  Sheet::kUsualLetters, kLargestLetters);
    if (QApplication::font().pixelSize() == pixels)
        return;
    QApplication::setFont(parts_.labels.fonts().widgetFont(pixels));
    menuBar()->setFont(QApplication::font());  // a styled bar keeps its own
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitLetters();
}

// Commands

QAction& CMainFrame::addCommand(QMenu& menu, Text name, const QList<QKeySequence>& keys,
                                const Handler& handler) {
    QAction* action = menu.addAction(toQString(name));
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, [this, handler] {
        handler();
        screen().refresh();
    });
    return *action;
}

void CMainFrame::addCommands() {
    QMenu& file = *menuBar()->addMenu(toQString(kCommandTexts.menuFile));
    file_.addTo(file);
    databases_.addToFile(file);
    charts_.addTo(file);
    ground_.addTo(file);
    addCommand(file, kCommandTexts.commandQuit, {QKeySequence(Qt::CTRL | Qt::Key_Q)},
               [this] { close(); });
    viewing_.addTo(*menuBar()->addMenu(toQString(kCommandTexts.menuView)));
    QMenu& navigate = *menuBar()->addMenu(toQString(kCommandTexts.menuNavigate));
    places_.addTo(navigate);
    navigate_.addTo(navigate);
    books_.addTo(navigate);
    QMenu& options = *menuBar()->addMenu(toQString(kCommandTexts.menuOptions));
    schemes_.addTo(options);
    options.addSeparator();
    options_.addTo(options);
    QMenu& help = *menuBar()->addMenu(toQString(kCommandTexts.menuHelp));
    help_.addTo(help);
    places_.addLegendTo(help);
    databases_.addToHelp(help);
    help_.addAbout(help);
    // The menu bar need not be there, the keys must.
    for (QAction* menu : menuBar()->actions())
        addActions(menu->menu()->actions());
    auto* all = new QAction(toQString(kCommandTexts.commandAll), this);  // the window owns it
    all->setShortcuts({Qt::Key_F10, Qt::Key_Menu});
    connect(all, &QAction::triggered, this, [this] { openMenu(); });
    addAction(all);
}

void CMainFrame::openMenu() {
    QList<QMenu*> menus;
    for (const QAction* menu : menuBar()->actions())
        menus.append(menu->menu());
    auto sheet = std::make_unique<MenuSheet>(this, menus, menuGroup_);
    sheet->offerAlways(*navigate_.emergencyCommand());
    sheet->onGroup = [this](int group) { menuGroup_ = group; };
    openSheet(std::move(sheet));
}

/// Only at the desk, for who wants it: its height is the map's, and whatever it holds is behind
/// the touch bar's first button, at the same place for finger, mouse and key.
void CMainFrame::fitMenuBar() { menuBar()->setVisible(viewing_.wantsMenuBar() && !isFullScreen()); }

/// The buttons that open something; the view does the others itself.
void CMainFrame::runTouch(TouchCommand command) {
    switch (command) {
        case TouchCommand::Menu:
            return openMenu();
        case TouchCommand::DirectTo:
            return navigate_.directTo();
        case TouchCommand::Nearest:
            return screen().showPage(PageId::NearestAirport);
        case TouchCommand::Plan:
            return navigate_.showPlan();
        default:
            return;
    }
}

void CMainFrame::chooseField(std::size_t field) {
    auto sheet =
        std::make_unique<FieldSheet>(this, screen().field(field), parts_.document.cockpitData());
    sheet->onChosen = [this, field](NavFieldId chosen) { screen().setField(field, chosen); };
    sheet->onAltimeter = [this] {
        openSheet(std::make_unique<AltimeterSheet>(this, parts_.document));
    };
    openSheet(std::move(sheet));
}

// Files

std::string CMainFrame::openFile(const std::filesystem::path& path) { return file_.load(path); }

bool CMainFrame::resume(const std::filesystem::path& unsaved, bool wanted) {
    const FlightMemory::Resumed resumed = document().memory().begin(unsaved, wanted);
    std::string news;
    const ActivePlan& plan = document().flight().plan();
    if (resumed.unsaved)
        news = text(kFileTexts.planRecovered);
    else if (resumed.plan)
        news = formatText(kFileTexts.planReopened, {textOf(plan.file().filename())});
    if (resumed.direct) {
        const std::string name = document().flight().navigation().state().activeName;
        news += (news.empty() ? "" : "\n") + formatText(kFlightTexts.directTo, {name});
    }
    if (!news.empty())
        screen().say(news);
    if (!resumed.error.empty())
        showError(resumed.error);
    return !news.empty() || !resumed.error.empty();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.size() == 1 && files.front().isLocalFile())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
    file_.openFile(toPath(event->mimeData()->urls().front().toLocalFile()));
}

void CMainFrame::showError(const std::string& message) {
    openBox(*this, QMessageBox::Critical, toQString(message), QMessageBox::Ok);
}

void CMainFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    fitMenuBar();
    screen().setBarMayHide(isFullScreen());
}

void CMainFrame::openSheet(std::unique_ptr<Sheet> sheet) {
    // The one before may be what has called: it goes when the events are done.
    if (sheet_)
        sheet_.release()->deleteLater();
    sheet_ = std::move(sheet);
    sheet_->keepBelow([this] {
        const Rect& status = screen().areas().layout().status;
        return view_.mapTo(this, QPoint(0, qRound(status.bottom()))).y();
    });
    connect(sheet_.get(), &QDialog::finished, this, [this] { screen().refresh(); });
    sheet_->open();
}

/// Takes the scheme that was loaded into use, menus and sheets included.
void CMainFrame::useScheme() {
    view_.schemeChanged();
    places_.schemeChanged(parts_.scheme);
    dressProgram(parts_.scheme);
}

// The window's place

void CMainFrame::showWhereItWas() {
    const WindowPlacement placement = loadPlacement(parts_.profile);
    QList<QRect> areas;
    for (const QScreen* screen : QApplication::screens())
        areas.append(screen->availableGeometry());
    setGeometry(reachablePlace(placement.normal, areas));
    placement.maximized ? showMaximized() : show();
}

void CMainFrame::storeState() {
    const QRect normal = normalGeometry();
    storePlacement(parts_.profile, {normal.isEmpty() ? geometry() : normal, isMaximized()});
    screen().storeState();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (!mayClose_ && parts_.document.flight().plan().changed()) {
        event->ignore();
        return file_.withPlanSafe([this] {
            mayClose_ = true;
            parts_.document.flight().plan().forgetUnsaved();
            close();
        });
    }
    storeState();
    document().memory().forget();
    if (!isAllSaved()) {
        document().memory().goOn();
        mayClose_ = false;
        return event->ignore();
    }
    QMainWindow::closeEvent(event);
}

/// Saves what is to be kept. False for the first time that something cannot be, which the pilot is
/// told: it would be lost.
bool CMainFrame::isAllSaved() {
    document().endSession();
    std::string lost;
    for (const std::string& trouble : document().troubles())
        lost += trouble + '\n';
    if (lost.empty() || std::exchange(toldUnsaved_, true))
        return true;
    showError(lost + std::string(text(kFileTexts.closeUnsaved)));
    return false;
}

void CMainFrame::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

}  // namespace korvel
