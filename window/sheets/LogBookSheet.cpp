#include "window/sheets/LogBookSheet.h"

#include <string>

#include "config/Text.h"
#include "config/texts/BookTexts.h"
#include "window/QtText.h"
#include "window/sheets/ColumnRows.h"

namespace korvel {
namespace {

constexpr int kRecentDays = 90;

std::string totalText(Text words, const LogBook::Total& total) {
    const std::string hours = hoursAndMinutes(total.minutes);
    return formatText(words, {total.flights, std::string_view(hours)});
}

ColumnRow rowOf(const LoggedFlight& flight) {
    const auto known = [](const std::string& name) {
        return name.empty() ? QStringLiteral("?") : QString::fromStdString(name);
    };
    const QString times = flight.off.empty()
                              ? toQString(kBookTexts.logUnderWay)
                              : QString::fromStdString(flight.off + " \u2013 " + flight.on);
    return {.ident = QString::fromStdString(dashedDate(dateNumber(flight.day))),
            .name = QStringLiteral("%1 \u2192 %2").arg(known(flight.from), known(flight.to)),
            .remarks = times,
            .figure = QString::fromStdString(hoursAndMinutes(flight.minutes))};
}

}  // namespace

LogBookSheet::LogBookSheet(QWidget* parent, const LogBook& book, const LocalTime& today)
    : Sheet(parent, toQString(kBookTexts.logTitle), QDialogButtonBox::Close) {
    std::string totals(text(kBookTexts.logNone));
    if (!book.flights.empty())
        totals = totalText(kBookTexts.logTotal, book.all()) + "\n" +
                 totalText(kBookTexts.logRecent, book.lastDays(kRecentDays, today));
    totals_.setText(toQString(totals));
    if (book.unreadable > 0)
        note_.setText(
            toQString(formatText(kBookTexts.logUnreadable, {static_cast<int>(book.unreadable)})));
    addNote(totals_);
    addNote(note_);
    showColumns(list_);
    for (const LoggedFlight& flight : book.flights)
        addColumnRow(list_, rowOf(flight));
    addTallRow(list_);
    list_.setVisible(list_.count() > 0);
    list_.setSelectionMode(QAbstractItemView::NoSelection);
    setPreferredWidth(12 * kRowPixels);
}

}  // namespace korvel
