#pragma once

#include <functional>
#include <string>

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "config/Text.h"
#include "exchange/Formats.h"
#include "exchange/PlanImport.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// What another program's file holds and what of it is not as in the databases, before any of it is
/// taken. Nothing changes while the sheet is open, nor when it is left.
class ImportSheet final : public Sheet {
 public:
    /// The document must outlive the sheet.
    ImportSheet(QWidget* parent, CKorvelDoc& document, const std::string& name, std::string bytes,
                const ForeignContent& content);

    /// The pilot takes the plan that is chosen, its track, its waypoints. The sheet is left then.
    std::function<void(ImportedPlan)> onPlan;
    std::function<void()> onTrack;
    std::function<void()> onWaypoints;

    void accept() override;

 private:
    void read(int route);
    void show(const ImportedPlan& plan);
    void offer(QPushButton& button, Text name, const std::function<void()>& action);

    CKorvelDoc& document_;
    const std::string bytes_;
    ImportedPlan plan_;
    QLabel name_;
    QLabel routeName_;
    QComboBox routes_;
    QLabel summary_;
    QPlainTextEdit notes_;
    QPushButton track_;
    QPushButton waypoints_;
};

}  // namespace korvel
