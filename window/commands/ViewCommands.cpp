#include "window/commands/ViewCommands.h"

#include <string_view>

#include <QActionGroup>

#include "cockpit/CKorvelDoc.h"
#include "config/ProfileFile.h"
#include "config/texts/CommandTexts.h"
#include "screen/PageCycle.h"
#include "screen/Screen.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr std::string_view kMenuBarKey = "MenuBar";

}  // namespace

void ViewCommands::addTo(QMenu& menu) {
    addMapCommands(menu);
    menu.addSeparator();
    host_.addCommand(menu, kCommandTexts.commandNextPage, {Qt::Key_N},
                     [this] { host_.screen().goToNextPage(); });
    addPages(menu);
    menu.addSeparator();
    markWhile(
        menu,
        host_.addCommand(
            menu, kCommandTexts.commandFullScreen, {Qt::Key_F11}, [this] { toggleFullScreen(); }),
        [this] { return host_.window().isFullScreen(); });
    markWhile(
        menu,
        host_.addCommand(menu, kCommandTexts.commandMenuBar,
                         {QKeySequence(Qt::SHIFT | Qt::Key_F10)}, [this] { toggleMenuBar(); }),
        [this] { return wantsMenuBar(); });
}

void ViewCommands::addMapCommands(QMenu& menu) {
    host_.addCommand(
        menu, kCommandTexts.commandZoomIn, {Qt::Key_Z, Qt::Key_Plus},
        [this] { host_.screen().zoom(1); });
    host_.addCommand(
        menu, kCommandTexts.commandZoomOut,
        {QKeySequence(Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::Key_Minus)},
        [this] { host_.screen().zoom(-1); });
    host_.addCommand(
        menu, kCommandTexts.commandBackToAircraft, {Qt::Key_Space},
        [this] { host_.screen().backToAircraft(); });
    host_.addCommand(
        menu, kCommandTexts.commandDeclutter, {Qt::Key_L},
        [this] { host_.screen().declutterMap(); });
    markWhile(
        menu,
        host_.addCommand(
            menu, kCommandTexts.commandProfile, {QKeySequence(Qt::SHIFT | Qt::Key_P)},
            [this] { host_.screen().showProfile(!host_.screen().hasProfile()); }),
        [this] { return host_.screen().hasProfile(); });
    greyUnless(
        menu,
        host_.addCommand(
            menu, kCommandTexts.commandRotateNavaids, {Qt::Key_V},
            [this] { host_.screen().rotateNavaids(); }),
        [this] { return host_.document().settings().rotateNavaids; });
    markWhile(
        menu,
        host_.addCommand(menu, kCommandTexts.commandMeasure, {QKeySequence(Qt::SHIFT | Qt::Key_M)},
                         [this] { host_.screen().setMeasuring(!host_.screen().isMeasuring()); }),
        [this] { return host_.screen().isMeasuring(); });
}

/// By the keys 1 to 9 and 0, in the order of the pages; those behind the tenth have a letter.
void ViewCommands::addPages(QMenu& menu) {
    auto* group = new QActionGroup(&menu);
    int key = Qt::Key_1;
    for (const PageId page : availablePages()) {
        QAction* action = menu.addAction(toQString(pageText(page)));
        if (key <= Qt::Key_9 + 1)
            action->setShortcut(QKeySequence(key > Qt::Key_9 ? Qt::Key_0 : key));
        else if (page == PageId::Profile)
            action->setShortcut(QKeySequence(Qt::Key_P));
        ++key;
        action->setCheckable(true);
        group->addAction(action);
        QObject::connect(
            action, &QAction::triggered, action, [this, page] { host_.screen().choosePage(page); });
        QObject::connect(&menu, &QMenu::aboutToShow, action, [this, action, page] {
            action->setChecked(host_.screen().page() == page);
        });
    }
}

bool ViewCommands::wantsMenuBar() {
    return host_.profile().getInt(kOptionsSection, kMenuBarKey, 0) != 0;
}

void ViewCommands::toggleMenuBar() {
    host_.profile().setInt(kOptionsSection, kMenuBarKey, wantsMenuBar() ? 0 : 1, true);
    if (onMenuBar)
        onMenuBar();
}

void ViewCommands::toggleFullScreen() {
    QWidget& window = host_.window();
    window.setWindowState(window.windowState() ^ Qt::WindowFullScreen);
}

}  // namespace korvel
