#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the choice of files, and what became of them.
struct FileTexts {
    Text openPlanTitle{61538, "Open Flight Plan"};
    Text savePlanTitle{61539, "Save Flight Plan As"};
    Text openTrackTitle{61540, "Open Track"};
    Text saveTrackTitle{61541, "Save Track As"};
    Text planSaveFilter{61543, "Flight plans (*.fp)"};
    Text trackFilter{61544, "Tracks (*.trk *.TRK)"};
    Text planSaved{61545, "%s saved"};  ///< %s: file
    Text askSavePlan{61546, "The flight plan has changed. Save it?"};
    Text errorTitle{61547, "Error"};
    Text planRecovered{61921, "The flight plan that was not saved is back"};
    Text noPlanToSave{61923, "There is no flight plan to save."};
    Text planOpened{61980, "%s opened"};  ///< %s: file
    Text planClosed{61981, "The flight plan is gone; Undo brings it back"};
    Text trackOpened{61982, "Track %s is shown"};  ///< %s: file
    Text trackEmpty{61984, "There are no track points in it."};
    Text profileDamaged{61985, "The settings were damaged; a copy is kept in %s"};  ///< %s: file
    Text askSaveTrack{62265, "The recorded track is in no file. Save it?"};
    Text openingFile{62266, "Opening %s"};         ///< %s: file
    Text planReopened{62268, "%s is open again"};  ///< %s: file
    Text otherWindow{62269, "Another window uses these settings: nothing is kept of this one"};
    Text closeUnsaved{62270, "Close again to end all the same."};
    Text settingsNotSaved{61986, "Settings not saved: %s cannot be written"};  ///< %s: file
};

inline constexpr FileTexts kFileTexts{};

}  // namespace korvel
