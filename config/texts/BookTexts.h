#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: checklists and the log book.
struct BookTexts {
    Text checklistCommand{66840, "Checklist&s..."};
    Text checklistTitle{66841, "Checklists"};
    Text checklistNone{66842, "There are no checklists. A text file in this folder is one:\n%s"};
    Text checklistOpen{66843, "%d of %d to do"};
    Text checklistDone{66844, "All done"};
    Text checklistReset{66845, "Begin anew"};
    Text checked{66846, "checked"};  ///< read aloud
    Text logCommand{66847, "Log &Book..."};
    Text logTitle{66848, "Log book"};
    Text logNone{66849,
                 "No flight has been logged yet. A flight with a receiver is logged when it "
                 "has ended."};
    Text logTotal{66850, "%d flights, %s h"};                ///< %s: hours and minutes
    Text logRecent{66851, "In the last 90 days: %d, %s h"};  ///< the same
    Text logUnreadable{66852, "Lines of the log that cannot be read: %d"};
    Text logUnderWay{66853, "under way when first seen"};
};

inline constexpr BookTexts kBookTexts{};

}  // namespace korvel
