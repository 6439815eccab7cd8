#include "window/CMainFrame.h"

#include <algorithm>

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "cockpit/PrefsTable.h"
#include "config/DataFileSearch.h"
#include "config/ProfileFile.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/SheetTexts.h"
#include "paint/ColorScheme.h"
#include "platform/Folders.h"
#include "screen/PageCycle.h"
#include "window/AppIcon.h"
#include "window/QtText.h"
#include "window/SchemePalette.h"
#include "window/WindowPlacement.h"
#include "window/sheets/ConnectedSheet.h"
#include "window/sheets/FieldSheet.h"
#include "window/sheets/HelpSheet.h"
#include "window/sheets/TextSheet.h"

namespace korvel {
namespace {

// Of the letters in menus and sheets.
constexpr int kLargestLetters = 26;
constexpr int kLettersInWindow = 54;  // one below the other in a large one
constexpr std::string_view kWelcomedKey = "Welcomed";

}  // namespace

CMainFrame::CMainFrame(const FrameParts& parts)
    : parts_(parts),
      view_(parts.document, parts.profile, parts.scheme, parts.labels),
      file_(*this),
      navigate_(*this, [this](const auto& next) { file_.withPlanSafe(next); }),
      places_(*this, parts.labels, parts.scheme),
      databases_(*this),
      options_(*this),
      schemes_(this) {
    setWindowTitle(toQString(kCommandTexts.programName));
    setWindowIcon(appIcon(parts_.scheme));
    fitLetters();
    addCommands();
    const std::vector<std::string> schemes = listSchemes(parts_.dataFiles);
    showScheme(schemes[selectedScheme(schemes, parts_.document.settings().schemeFile)]);
    setCentralWidget(&view_);
    setAcceptDrops(true);
    listenToScreen();
    places_.onApproach = [this](std::vector<LandingRunway> runways) {
        navigate_.approach(std::move(runways));
    };
    places_.onDirectTo = [this](const PlaceChoice& place) { navigate_.directTo(place); };
    view_.setFocus();
}

void CMainFrame::listenToScreen() {
    screen().onLive = [this](bool live) { screenKeeper_.keep(live && isVisible()); };
    screen().onBarShown = [this](bool shown) { menuBar()->setVisible(shown); };
    ScreenHand& hand = view_.hand();
    hand.onTouch = [this](TouchCommand command) { runTouch(command); };
    hand.onPlanRow = [this](std::size_t row) { navigate_.openPlanRow(row); };
    hand.onField = [this](std::size_t field) { chooseField(field); };
    hand.onPlaces = [this](const std::vector<MapPlace>& found) { places_.identify(found); };
    hand.onAirport = [this](const NearAirport& airport) { places_.openAirport(airport); };
    hand.onApproach = [this] { navigate_.approach(); };
}

/// A large window is looked at from further away.
void CMainFrame::fitLetters() {
    const int pixels = std::clamp(std::min(width(), height()) / kLettersInWindow,
                                  Sheet::kUsualLetters, kLargestLetters);
    if (QApplication::font().pixelSize() != pixels)
        QApplication::setFont(parts_.labels.fonts().widgetFont(pixels));
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
    addCommand(file, kCommandTexts.commandQuit, {QKeySequence(Qt::CTRL | Qt::Key_Q)},
               [this] { close(); });
    addViewCommands(*menuBar()->addMenu(toQString(kCommandTexts.menuView)));
    QMenu& navigate = *menuBar()->addMenu(toQString(kCommandTexts.menuNavigate));
    places_.addTo(navigate);
    navigate_.addTo(navigate);
    addOptions(*menuBar()->addMenu(toQString(kCommandTexts.menuOptions)));
    addHelp(*menuBar()->addMenu(toQString(kCommandTexts.menuHelp)));
    // The menu bar may vanish in full screen, the keys must not.
    for (QAction* menu : menuBar()->actions())
        addActions(menu->menu()->actions());
}

void CMainFrame::addViewCommands(QMenu& menu) {
    addCommand(menu, kCommandTexts.commandZoomIn, {Qt::Key_Z, Qt::Key_Plus},
               [this] { screen().zoom(1); });
    addCommand(menu, kCommandTexts.commandZoomOut,
               {QKeySequence(Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::Key_Minus)},
               [this] { screen().zoom(-1); });
    addCommand(menu, kCommandTexts.commandBackToAircraft, {Qt::Key_Space},
               [this] { screen().backToAircraft(); });
    greyUnless(menu,
               addCommand(menu, kCommandTexts.commandRotateNavaids, {Qt::Key_V},
                          [this] { screen().rotateNavaids(); }),
               [this] { return parts_.document.settings().rotateNavaids; });
    markWhile(menu,
              addCommand(menu, kCommandTexts.commandMeasure, {QKeySequence(Qt::SHIFT | Qt::Key_M)},
                         [this] { screen().setMeasuring(!screen().isMeasuring()); }),
              [this] { return screen().isMeasuring(); });
    menu.addSeparator();
    addCommand(menu, kCommandTexts.commandNextPage, {Qt::Key_N},
               [this] { screen().goToNextPage(); });
    addPages(menu);
    menu.addSeparator();
    markWhile(menu,
              addCommand(menu, kCommandTexts.commandFullScreen, {Qt::Key_F11},
                         [this] { toggleFullScreen(); }),
              [this] { return isFullScreen(); });
}

/// By the keys 1 to 9, in the order of the pages.
void CMainFrame::addPages(QMenu& menu) {
    auto* group = new QActionGroup(&menu);
    int key = Qt::Key_1;
    for (const PageId page : availablePages()) {
        QAction* action = menu.addAction(toQString(pageName(page)));
        action->setShortcut(QKeySequence(key++));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, page] { screen().choosePage(page); });
        connect(&menu, &QMenu::aboutToShow, action,
                [this, action, page] { action->setChecked(screen().page() == page); });
    }
}

void CMainFrame::addOptions(QMenu& menu) {
    addCommand(menu, kCommandTexts.commandNight, {Qt::Key_C}, [this] { toggleNight(); });
    addSchemes(*menu.addMenu(toQString(kCommandTexts.menuSchemes)));
    menu.addSeparator();
    options_.addTo(menu);
}

void CMainFrame::addHelp(QMenu& menu) {
    addCommand(menu, kCommandTexts.commandHelp, {Qt::Key_F1},
               [this] { openSheet(std::make_unique<HelpSheet>(this, HelpTopic::FirstFlight)); });
    addCommand(menu, kCommandTexts.commandKeys, {QKeySequence(Qt::SHIFT | Qt::Key_F1)}, [this] {
        openSheet(std::make_unique<TextSheet>(this, toQString(kSheetTexts.keysTitle), keyList()));
    });
    addCommand(menu, kCommandTexts.commandConnected, {Qt::Key_F2}, [this] { showConnected(); });
    databases_.addToHelp(menu);
    addCommand(menu, kCommandTexts.commandAbout, {QKeySequence(Qt::CTRL | Qt::Key_F1)},
               [this] { openSheet(std::make_unique<HelpSheet>(this, HelpTopic::About)); });
}

void CMainFrame::showConnected() {
    auto sheet = std::make_unique<ConnectedSheet>(
        this, [this] { return connectedText(parts_.document, dataFolders()); });
    sheet->addNext(kCommandTexts.nextPort, [this] { options_.choosePort(); });
    sheet->addNext(kCommandTexts.nextSimulator, [this] { options_.simulate(true); });
    sheet->addNext(kCommandTexts.nextPlan, [this] { file_.choosePlan(); });
    openSheet(std::move(sheet));
}

void CMainFrame::welcome() {
    if (parts_.profile.getInt(kOptionsSection, kWelcomedKey, 0) != 0)
        return;
    parts_.profile.setInt(kOptionsSection, kWelcomedKey, 1, true);
    showConnected();
}

/// Every command with a key, menu by menu.
QString CMainFrame::keyList() const {
    QString list;
    for (const QAction* menu : menuBar()->actions()) {
        list += menu->text().remove(QLatin1Char('&')).toUpper() + QLatin1Char('\n');
        for (const QAction* action : menu->menu()->actions()) {
            const QString keys = QKeySequence::listToString(action->shortcuts());
            const QString name =
                action->text().remove(QLatin1Char('&')).remove(QLatin1String("..."));
            if (!keys.isEmpty())
                list += QStringLiteral("%1:   %2\n").arg(name, keys);
        }
        list += QLatin1Char('\n');
    }
    return list;
}

/// The buttons that open something; the view does the others itself.
void CMainFrame::runTouch(TouchCommand command) {
    switch (command) {
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
    openSheet(std::move(sheet));
}

// Files

std::string CMainFrame::openFile(const std::filesystem::path& path) { return file_.openPlan(path); }

bool CMainFrame::recoverPlan(const std::filesystem::path& unsaved, bool wanted) {
    ActivePlan& plan = parts_.document.flight().plan();
    plan.keepUnsavedIn(unsaved);
    const auto error = wanted ? plan.recover() : std::nullopt;
    if (!error)
        return false;
    if (error->empty())
        screen().say(std::string(text(kFileTexts.planRecovered)));
    else
        showError(*error);
    return true;
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.size() == 1 && files.front().isLocalFile())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
    file_.openFile(event->mimeData()->urls().front().toLocalFile().toStdU16String());
}

void CMainFrame::showError(const std::string& message) {
    auto* box = new QMessageBox(QMessageBox::Critical, toQString(kFileTexts.errorTitle),
                                toQString(message), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void CMainFrame::toggleFullScreen() { setWindowState(windowState() ^ Qt::WindowFullScreen); }

void CMainFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    // Whoever has no keyboard must find the way out of full screen: the menus go only with a tap.
    menuBar()->show();
    screen().setBarMayHide(isFullScreen());
}

void CMainFrame::openSheet(std::unique_ptr<Sheet> sheet) {
    // The one before may be what has called: it goes when the events are done.
    if (sheet_)
        sheet_.release()->deleteLater();
    sheet_ = std::move(sheet);
    connect(sheet_.get(), &QDialog::finished, this, [this] { screen().refresh(); });
    sheet_->open();
}

// Colour schemes

void CMainFrame::addSchemes(QMenu& menu) {
    for (const std::string& name : listSchemes(parts_.dataFiles)) {
        QAction* action = schemes_.addAction(toQString(name));
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, name] { chooseScheme(name); });
        menu.addAction(action);
    }
}

void CMainFrame::toggleNight() { chooseScheme(night_.other()); }

void CMainFrame::chooseScheme(const std::string& name) {
    Settings settings = parts_.document.settings();
    settings.schemeFile = name;
    parts_.document.applySettings(settings);
    showScheme(name);
}

void CMainFrame::showScheme(const std::string& name) {
    night_.show(name);
    parts_.scheme.load(name, parts_.dataFiles);
    view_.schemeChanged();
    places_.schemeChanged(parts_.scheme);
    QApplication::setPalette(schemePalette(parts_.scheme));
    for (QAction* action : schemes_.actions())
        action->setChecked(action->text() == toQString(name));
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
    QMainWindow::closeEvent(event);
}

}  // namespace korvel
