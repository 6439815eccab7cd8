#pragma once

#include <functional>

#include <QButtonGroup>
#include <QGridLayout>
#include <QList>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>

#include "window/sheets/Sheet.h"

namespace korvel {

/// Every command as a large tile with its key: the groups side by side at the top, below them the
/// commands of one. Arrow keys go from tile to tile, and each command's own key works, too.
class MenuSheet final : public Sheet {
 public:
    /// The menus are the groups, in their order; `group` counts from 0 and is shown first. The
    /// menus must outlive the sheet.
    MenuSheet(QWidget* parent, QList<QMenu*> menus, int group);

    /// Has the command at the foot as well, whatever group is shown. It must outlive the sheet.
    void offerAlways(QAction& action);

    /// Another group is shown.
    std::function<void(int group)> onGroup;

    bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void addGroups(int group);
    void showGroup(int group);
    void showTiles(QMenu& menu);
    void addTile(QAction& action, int place);
    void run(QAction& action);
    bool runByKey(const QKeySequence& key);
    bool moveFocus(int key);

    QList<QMenu*> menus_;
    QButtonGroup groups_;
    QScrollArea scroll_;
    QList<QPushButton*> tiles_;  // of the scroll area's page
};

}  // namespace korvel
