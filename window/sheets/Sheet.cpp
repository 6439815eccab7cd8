#include "window/sheets/Sheet.h"

#include <algorithm>
#include <memory>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QScroller>

#include "config/texts/SheetTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kMargin = 10;
constexpr int kSpacing = 6;
constexpr int kLeastButton = 88;  // wide
constexpr int kLeastTallRow = 2 * Sheet::kRowPixels;
/// The application's note that the pilot types with the key pad.
constexpr const char* kKeyPadWanted = "keyPadWanted";

bool isKeyPadWanted() { return QCoreApplication::instance()->property(kKeyPadWanted).toBool(); }

}  // namespace

Sheet::Sheet(QWidget* parent, const QString& title, QDialogButtonBox::StandardButtons buttons)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      outer_(this),
      column_(&body_),
      keyPad_(this),
      buttons_(buttons) {
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    outer_.setContentsMargins(0, 0, 0, 0);
    outer_.setSpacing(0);
    column_.setContentsMargins(kMargin, kMargin, kMargin, kSpacing);
    column_.setSpacing(kSpacing);
    addHeader(title);
    scroll_.setWidgetResizable(true);
    scroll_.setFrameShape(QFrame::NoFrame);
    scroll_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_.setFocusPolicy(Qt::NoFocus);
    scroll_.setWidget(&body_);
    outer_.addWidget(&scroll_, 1);
    addFoot();
    nameButtons();
    connect(this, &QWidget::windowTitleChanged, &title_, &QLabel::setText);
    connect(&buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(&buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (parent != nullptr)
        parent->window()->installEventFilter(this);
}

/// The toolkit's own words may be of another language, and its icons of another style.
void Sheet::nameButtons() {
    for (QAbstractButton* button : buttons_.buttons())
        button->setIcon({});
    if (QPushButton* close = buttons_.button(QDialogButtonBox::Close))
        close->setText(toQString(kSheetTexts.closeSheet));
    if (QPushButton* cancel = buttons_.button(QDialogButtonBox::Cancel))
        cancel->setText(toQString(kSheetTexts.cancelSheet));
}

void Sheet::addHeader(const QString& title) {
    header_.setObjectName(QStringLiteral("sheetHeader"));  // known to the style
    header_.setAttribute(Qt::WA_StyledBackground);
    auto* row = new QHBoxLayout(&header_);  // the header owns its layout
    row->setContentsMargins(kMargin, 0, 0, 0);
    row->addWidget(&title_, 1);
    row->addWidget(&back_);
    title_.setText(title);
    back_.setText(QStringLiteral("\u00D7"));
    back_.setAccessibleName(toQString(kSheetTexts.closeSheet));
    back_.setFocusPolicy(Qt::NoFocus);
    back_.setFixedSize(kRowPixels + kMargin, kRowPixels);
    connect(&back_, &QToolButton::clicked, this, &QDialog::reject);
    outer_.addWidget(&header_);
}

void Sheet::addFoot() {
    auto foot = std::make_unique<QVBoxLayout>();
    foot->setContentsMargins(kMargin, 0, kMargin, kMargin);
    foot->setSpacing(kSpacing);
    foot->addWidget(&keyPad_);
    auto row = std::make_unique<QHBoxLayout>();
    row->addWidget(&keyPadButton_);
    row->addWidget(&buttons_, 1);
    foot->addLayout(row.release());
    outer_.addLayout(foot.release());
    keyPad_.hide();
    keyPadButton_.setText(toQString(kSheetTexts.keyPadShow));
    keyPadButton_.setCheckable(true);
    keyPadButton_.setFocusPolicy(Qt::NoFocus);
    keyPadButton_.setMinimumSize(2 * kRowPixels, kRowPixels);
    connect(&keyPadButton_, &QToolButton::clicked, this, &Sheet::showKeyPad);
    for (QAbstractButton* button : buttons_.buttons())
        button->setMinimumSize(kLeastButton, kRowPixels);
}

void Sheet::addRow(QWidget& row) {
    row.setMinimumHeight(std::max(kRowPixels, row.minimumHeight()));
    column_.addWidget(&row);
}

void Sheet::addNote(QLabel& note) {
    note.setWordWrap(true);
    column_.addWidget(&note);
}

void Sheet::addRow(std::initializer_list<QWidget*> sideBySide) {
    auto row = std::make_unique<QHBoxLayout>();
    for (QWidget* widget : sideBySide) {
        widget->setMinimumHeight(std::max(kRowPixels, widget->minimumHeight()));
        row->addWidget(widget);
    }
    column_.addLayout(row.release());
}

void Sheet::addTallRow(QWidget& row) {
    // What it would like to have makes no sheet scroll that has room for a few of its lines.
    row.setSizePolicy(row.sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    row.setMinimumHeight(std::max(kLeastTallRow, row.minimumHeight()));
    column_.addWidget(&row, 1);
}

void Sheet::showEvent(QShowEvent* event) {
    // The rows stay together at the top unless one of them takes the height.
    bool hasTallRow = false;
    for (int i = 0; i < column_.count(); ++i)
        hasTallRow |= column_.stretch(i) > 0;
    if (!hasTallRow)
        column_.addStretch(1);
    keepDefaultButton();
    offerKeyPad();
    letFingersScroll();
    place();
    QDialog::showEvent(event);
}

/// The toolkit would make a default of whichever button has the focus: then none is filled that
/// stands where the thumb expects it.
void Sheet::keepDefaultButton() {
    const auto all = findChildren<QPushButton*>();
    if (std::ranges::any_of(all, &QPushButton::isDefault))
        for (QPushButton* button : all)
            button->setAutoDefault(false);
}

/// Enter presses the button that is marked, and only without one accepts the whole.
void Sheet::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* marked = qobject_cast<QPushButton*>(focusWidget());
    if (enters && marked != nullptr && marked->hasFocus())
        return marked->click();
    QDialog::keyPressEvent(event);
}

void Sheet::letFingersScroll() {
    for (auto* choice : findChildren<QComboBox*>())
        choice->view();  // makes the list that opens, which is one of those below
    for (auto* area : findChildren<QAbstractScrollArea*>())
        QScroller::grabGesture(area->viewport(), QScroller::TouchGesture);
    for (auto* list : body_.findChildren<QAbstractItemView*>())
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

/// There is something to type when the sheet has a line for it.
void Sheet::offerKeyPad() {
    const auto lines = body_.findChildren<QLineEdit*>();
    keyPadButton_.setVisible(!lines.empty());
    for (QLineEdit* line : lines) {
        line->setAttribute(Qt::WA_AcceptTouchEvents);  // or it would hear of the mouse only
        line->installEventFilter(this);
    }
    showKeyPad(!lines.empty() && isKeyPadWanted());
}

void Sheet::showKeyPad(bool on) {
    keyPad_.setVisible(on);
    keyPadButton_.setChecked(on);
    place();  // the layout has grown the sheet, and would leave it so
    if (keyPadButton_.isVisible())
        QCoreApplication::instance()->setProperty(kKeyPadWanted, on);
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
            if (isVisible() && watched == parentWidget()->window())
                place();
            break;
        case QEvent::TouchBegin:
            if (watched->inherits("QLineEdit"))
                showKeyPad(true);
            break;
        case QEvent::KeyPress:
            // What the pad sends does not come from the system.
            if (event->spontaneous() && keyPad_.isVisible())
                showKeyPad(false);
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void Sheet::place() {
    if (parentWidget() == nullptr)
        return;
    const QWidget& window = *parentWidget()->window();
    const QSize room = window.size();
    const int wanted =
        std::max({preferredWidth_ * font().pixelSize() / kUsualLetters, sizeHint().width(),
                  minimumSizeHint().width(),
                  body_.sizeHint().width() + scroll_.verticalScrollBar()->sizeHint().width()});
    const int width = std::min(wanted, room.width());
    const int top = above_ ? above_() : 0;
    const int height = room.height() - top;
    // Where there is no room for a few rows, as with the key pad, the title goes first.
    header_.show();
    header_.setVisible(outer_.totalMinimumSize().height() + kLeastTallRow <= height);
    outer_.activate();
    setGeometry(QRect(window.mapToGlobal(QPoint(room.width() - width, top)), QSize(width, height)));
}

}  // namespace korvel
