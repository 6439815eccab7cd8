#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QMenu>
#include <QWidget>

#include "config/Text.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;
class ProfileFile;
class Screen;

/// Shows the command of the menu in grey while it can do nothing. Its key works all the same and
/// says why not.
inline void greyUnless(const QMenu& menu, QAction& action, const std::function<bool()>& possible) {
    QObject::connect(
        &menu, &QMenu::aboutToShow, &action,
        [&action, possible] { action.setEnabled(possible()); });
    QObject::connect(&menu, &QMenu::aboutToHide, &action, [&action] { action.setEnabled(true); });
}

/// Gives the command of the menu a check mark.
inline void markWhile(const QMenu& menu, QAction& action, const std::function<bool()>& on) {
    action.setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, &action,
                     [&action, on] { action.setChecked(on()); });
}

/// The window as the groups of its commands see it. Every command is an action with a text of the
/// string table, its keys, and a handler.
class CommandHost {
 public:
    using Handler = std::function<void()>;

    CommandHost() = default;
    CommandHost(const CommandHost&) = delete;
    CommandHost& operator=(const CommandHost&) = delete;
    virtual ~CommandHost() = default;

    /// The action belongs to the menu.
    virtual QAction& addCommand(QMenu& menu, Text name, const QList<QKeySequence>& keys,
                                const Handler& handler) = 0;
    /// Shows the sheet in place of the one that is open. The map goes on behind it.
    virtual void openSheet(std::unique_ptr<Sheet> sheet) = 0;
    /// A message box that the pilot closes; the map goes on behind it.
    virtual void showError(const std::string& message) = 0;

    virtual QWidget& window() = 0;
    /// The window without its menus.
    virtual QWidget& view() = 0;
    virtual Screen& screen() = 0;
    virtual CKorvelDoc& document() = 0;
    virtual ProfileFile& profile() = 0;
};

}  // namespace korvel
