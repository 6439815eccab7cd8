#include "window/sheets/ConnectedSheet.h"

#include <utility>

#include "config/texts/ConnectedTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr int kUpdateMs = 1000;

}  // namespace

ConnectedSheet::ConnectedSheet(QWidget* parent, std::function<std::string()> words)
    : TextSheet(parent, toQString(kConnectedTexts.connectedTitle), {}), source_(std::move(words)) {
    update();
    connect(&timer_, &QTimer::timeout, this, [this] { update(); });
    connect(this, &QDialog::finished, &timer_, &QTimer::stop);
    timer_.start(kUpdateMs);
}

/// Words that have not changed stay as they are scrolled and marked.
void ConnectedSheet::update() {
    QString now = toQString(source_());
    if (now == shown_)
        return;
    shown_ = std::move(now);
    words().setPlainText(shown_);
}

void ConnectedSheet::addChoices(const std::vector<Choice>& choices) {
    auto* row = new QWidget(this);  // the sheet owns it
    auto* side = new QHBoxLayout(row);
    side->setContentsMargins(0, 0, 0, 0);
    for (const Choice& choice : choices) {
        auto* button = new QPushButton(choice.picture, toQString(choice.name), row);
        button->setIconSize(choice.picture.availableSizes().front());
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setAutoDefault(false);
        button->setChecked(choice.chosen);
        side->addWidget(button);
        connect(button, &QPushButton::clicked, this, choice.choose);
    }
    addRow(*row);
}

void ConnectedSheet::addNext(Text name, const std::function<void()>& next) {
    auto* button = new QPushButton(toQString(name), this);  // the sheet owns it
    button->setAutoDefault(false);
    addRow(*button);
    connect(button, &QPushButton::clicked, this, [this, next] {
        QDialog::accept();
        next();
    });
}

}  // namespace korvel
