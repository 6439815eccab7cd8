#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QIcon>
#include <QPushButton>
#include <QTimer>

#include "config/Text.h"
#include "window/sheets/TextSheet.h"

namespace korvel {

/// What is connected and loaded, kept up to date, and what to do next about it. The very first
/// start opens it.
class ConnectedSheet final : public TextSheet {
 public:
    /// `words` is asked again every second.
    ConnectedSheet(QWidget* parent, std::function<std::string()> words);

    /// Adds a button that closes the sheet and does this.
    void addNext(Text name, const std::function<void()>& next);

    struct Choice {
        Text name;
        QIcon picture;
        bool chosen = false;
        std::function<void()> choose;
    };
    /// Adds a row of which one is chosen, at once and as often as the pilot likes.
    void addChoices(const std::vector<Choice>& choices);

 private:
    void update();

    std::function<std::string()> source_;
    QString shown_;
    QTimer timer_;
};

}  // namespace korvel
