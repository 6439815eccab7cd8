#include "window/sheets/ImportSheet.h"

#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "config/texts/ExchangeTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "window/QtText.h"

namespace korvel {
namespace {

double milesOf(const std::vector<PlanWaypoint>& entries) {
    double miles = 0;
    for (std::size_t i = 1; i < entries.size(); ++i)
        miles += DistanceNm(entries[i - 1].record->position, entries[i].record->position);
    return miles;
}

}  // namespace

ImportSheet::ImportSheet(QWidget* parent, CKorvelDoc& document, const std::string& name,
                         std::string bytes, const ForeignContent& content)
    : Sheet(parent, toQString(kExchangeTexts.importTitle),
            content.plan ? QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                         : QDialogButtonBox::StandardButtons(QDialogButtonBox::Cancel)),
      document_(document),
      bytes_(std::move(bytes)) {
    name_.setText(QString::fromStdString(name));
    addRow(name_);
    setPreferredWidth(13 * kRowPixels);
    if (content.plan) {
        routeName_.setText(toQString(kExchangeTexts.importRoute));
        routeName_.setBuddy(&routes_);
        addRow({&routeName_, &routes_});
        routes_.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        addNote(summary_);
        notes_.setReadOnly(true);
        addTallRow(notes_);
        buttons().button(QDialogButtonBox::Ok)->setText(toQString(kExchangeTexts.importTake));
        read(1);
        for (const ImportedPlan::Route& route : plan_.routes)
            routes_.addItem(QString::fromStdString(route.name) +
                            QStringLiteral(" (%1)").arg(route.points));
        const bool isOne = plan_.routes.size() < 2;
        routeName_.setVisible(!isOne);
        routes_.setVisible(!isOne);
        connect(&routes_, &QComboBox::currentIndexChanged, this,
                [this](int index) { read(index + 1); });
    }
    if (content.track)
        offer(track_, kExchangeTexts.importTrack, [this] { onTrack(); });
    if (content.waypoints)
        offer(waypoints_, kExchangeTexts.importWaypoints, [this] { onWaypoints(); });
}

void ImportSheet::offer(QPushButton& button, Text name, const std::function<void()>& action) {
    button.setText(toQString(name));
    button.setAutoDefault(false);
    addRow(button);
    connect(&button, &QPushButton::clicked, this, [this, action] {
        QDialog::accept();
        action();
    });
}

/// Counted from 1.
void ImportSheet::read(int route) {
    plan_ =
        importPlan(bytes_, route, document_.charts().database(), document_.flight().plan().fixes());
    show(plan_);
}

void ImportSheet::show(const ImportedPlan& plan) {
    buttons().button(QDialogButtonBox::Ok)->setEnabled(plan.error.empty());
    if (!plan.error.empty()) {
        summary_.setText(toQString(plan.error));
        notes_.clear();
        return;
    }
    const DistanceUnit unit = document_.cockpitData().distanceUnit;
    summary_.setText(toQString(formatText(
        kExchangeTexts.importSummary,
        {static_cast<int>(plan.entries.size()), distanceText(milesOf(plan.entries), unit)})));
    std::string words;
    for (const std::string& note : plan.notes)
        words += note + "\n";
    if (words.empty())
        words = text(kExchangeTexts.importUnchanged);
    notes_.setPlainText(toQString(words));
}

void ImportSheet::accept() {
    if (!plan_.error.empty() || plan_.entries.empty())
        return;
    Sheet::accept();
    if (onPlan)
        onPlan(std::move(plan_));
}

}  // namespace korvel
