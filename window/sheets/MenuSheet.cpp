#include "window/sheets/MenuSheet.h"

#include <utility>

#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "config/texts/CommandTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kColumns = 3;
constexpr int kTilePixels = 68;
constexpr int kGap = 6;
constexpr int kInset = 10;  // of the words
constexpr int kMarkPixels = 26;

QString nameOf(const QAction& action) {
    return action.text().remove(QLatin1Char('&')).remove(QLatin1String("..."));
}

/// A command's name, its key below it and, for what can be on or off, which of the two it is.
class Tile final : public QPushButton {
 public:
    explicit Tile(const QAction& action)
        : name_(nameOf(action)),
          key_(action.shortcut().toString(QKeySequence::NativeText)),
          marked_(action.isCheckable()),
          round_(action.actionGroup() != nullptr),
          leadsOn_(action.menu() != nullptr) {
        setText(name_);  // for who does not see
        setEnabled(action.isEnabled());
        setCheckable(marked_);
        setChecked(action.isChecked());
        setAutoDefault(false);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return {2 * kTilePixels, kTilePixels}; }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        option.state.setFlag(QStyle::State_On, false);
        painter.drawControl(QStyle::CE_PushButton, option);
        QRect words = rect().adjusted(kInset, kInset / 2, -kInset, -kInset / 2);
        if (marked_) {
            option.rect = QRect(kInset, (height() - kMarkPixels) / 2, kMarkPixels, kMarkPixels);
            option.state.setFlag(QStyle::State_On, isChecked());
            painter.drawPrimitive(
                round_ ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox, option);
            words.setLeft(option.rect.right() + kInset);
        }
        const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
        painter.setPen(palette().color(group, QPalette::ButtonText));
        const QString below = leadsOn_ ? QStringLiteral("\u203A") : key_;
        painter.drawText(words, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, name_);
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(words, Qt::AlignRight | Qt::AlignBottom, below);
    }

 private:
    QString name_;
    QString key_;
    bool marked_;
    bool round_;
    bool leadsOn_;
};

}  // namespace

MenuSheet::MenuSheet(QWidget* parent, QList<QMenu*> menus, int group)
    : Sheet(parent, toQString(kCommandTexts.commandAll), QDialogButtonBox::NoButton),
      menus_(std::move(menus)) {
    addGroups(group);
    scroll_.setWidgetResizable(true);
    scroll_.setFrameShape(QFrame::NoFrame);
    scroll_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_.setFocusPolicy(Qt::NoFocus);
    addTallRow(scroll_);
    setPreferredWidth(15 * kRowPixels);
    showGroup(group);
}

void MenuSheet::offerAlways(QAction& action) {
    auto* button = new QPushButton(nameOf(action) + QStringLiteral("   ") +
                                       action.shortcut().toString(QKeySequence::NativeText),
                                   this);  // the sheet owns it
    button->setAutoDefault(false);
    button->setMinimumSize(3 * kRowPixels, kRowPixels);
    buttons().addButton(button, QDialogButtonBox::ActionRole);
    connect(button, &QPushButton::clicked, this, [this, &action] { run(action); });
}

void MenuSheet::addGroups(int group) {
    auto* row = new QHBoxLayout;  // the column takes it
    row->setSpacing(kGap);
    for (int i = 0; i < menus_.size(); ++i) {
        auto* button = new QPushButton(menus_[i]->title(), this);  // the sheet owns it
        button->setCheckable(true);
        button->setAutoDefault(false);
        button->setMinimumSize(kRowPixels, kRowPixels);
        button->installEventFilter(this);
        groups_.addButton(button, i);
        row->addWidget(button);
    }
    groups_.button(group)->setChecked(true);
    column().addLayout(row);
    connect(&groups_, &QButtonGroup::idClicked, this, [this](int chosen) {
        showGroup(chosen);
        if (onGroup)
            onGroup(chosen);
    });
}

void MenuSheet::showGroup(int group) {
    setWindowTitle(menus_[group]->title().remove(QLatin1Char('&')));
    showTiles(*menus_[group]);
}

/// The menu brings its marks and what is grey up to date when it is about to show.
void MenuSheet::showTiles(QMenu& menu) {
    if (QWidget* old = scroll_.takeWidget())
        old->deleteLater();  // one of its tiles may be what has called
    tiles_.clear();
    auto* page = new QWidget;            // the scroll area takes it
    auto* grid = new QGridLayout(page);  // and the page this
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kGap);
    Q_EMIT menu.aboutToShow();
    for (QAction* action : menu.actions())
        if (!action->isSeparator() && action->isVisible())
            addTile(*action, static_cast<int>(tiles_.size()));
    Q_EMIT menu.aboutToHide();
    for (int i = 0; i < tiles_.size(); ++i)
        grid->addWidget(tiles_[i], i / kColumns, i % kColumns);
    for (int column = 0; column < kColumns; ++column)
        grid->setColumnStretch(column, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    scroll_.setWidget(page);
    if (!tiles_.empty())
        tiles_.front()->setFocus();
}

void MenuSheet::addTile(QAction& action, int place) {
    auto* tile = new Tile(action);  // the page takes it
    tile->installEventFilter(this);
    tiles_.insert(place, tile);
    connect(tile, &QPushButton::clicked, this, [this, meant = QPointer<QAction>(&action)] {
        if (!meant.isNull())
            run(*meant);
    });
}

void MenuSheet::run(QAction& action) {
    if (action.menu() != nullptr) {
        setWindowTitle(action.text().remove(QLatin1Char('&')));
        return showTiles(*action.menu());
    }
    QDialog::accept();
    action.trigger();
}

bool MenuSheet::runByKey(const QKeySequence& key) {
    for (const QMenu* menu : std::as_const(menus_))
        for (QAction* action : menu->actions())
            if (action->shortcuts().contains(key)) {
                run(*action);
                return true;
            }
    return false;
}

/// Above the first row lie the groups.
bool MenuSheet::moveFocus(int key) {
    auto* const here = qobject_cast<QPushButton*>(focusWidget());
    const qsizetype tile = tiles_.indexOf(here);
    const int group = groups_.id(here);
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int step = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    QAbstractButton* next = nullptr;
    if (group >= 0)
        next = sideways ? groups_.button(group + step) : tiles_.value(step > 0 ? 0 : -1);
    else if (tile >= 0)
        next = tiles_.value(tile + qsizetype{step} * (sideways ? 1 : kColumns));
    if (next == nullptr && tile >= 0 && key == Qt::Key_Up)
        next = groups_.checkedButton();
    if (next == nullptr)
        return false;
    next->setFocus();
    if (group < 0 || !sideways)
        scroll_.ensureWidgetVisible(next);
    return true;
}

/// The sheet knows which button lies in which direction: buttons would choose the next of their
/// group, and what scrolls the tiles would take the arrows for itself.
bool MenuSheet::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || qobject_cast<QPushButton*>(watched) == nullptr)
        return Sheet::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Space || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
        return false;
    keyPressEvent(key);
    return true;
}

void MenuSheet::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            moveFocus(event->key());
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (auto* marked = qobject_cast<QPushButton*>(focusWidget()))
                marked->click();
            return;
        default:
            if (!runByKey(QKeySequence(event->keyCombination())))
                Sheet::keyPressEvent(event);
    }
}

}  // namespace korvel
