#pragma once

#include <functional>
#include <string>

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include "window/sheets/Sheet.h"

namespace korvel {

class ChartCompiling;

/// Which databases are in use, and new ones compiled from what was downloaded. The work goes on
/// when the sheet is left.
class ChartSheet final : public Sheet {
 public:
    /// What the sheet shows and does belongs to its commands.
    struct Source {
        /// What is in use, or what became of the last compilation and what is in use.
        std::function<std::string()> words;
        /// Null while nothing is compiled.
        std::function<ChartCompiling*()> compiling;
        /// Whether there is a database that is not in use yet.
        std::function<bool()> canTake;
        std::function<void()> chooseFolder;
        std::function<void()> chooseZip;
        std::function<void()> take;
    };

    ChartSheet(QWidget* parent, Source source);

 private:
    void doOnClick(QPushButton& button, const std::function<void()>& action);
    void update();

    const Source source_;
    QString shown_;
    QPlainTextEdit words_;
    QLabel explanation_;
    QPushButton folder_;
    QPushButton zip_;
    QProgressBar progress_;
    QPushButton stop_;
    QPushButton take_;
    QTimer timer_;
};

}  // namespace korvel
