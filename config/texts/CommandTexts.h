#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the window's commands and their menus, with the letter behind "&" as their key.
struct CommandTexts {
    Text programName{61500, "Korvel Pro"};
    Text menuFile{61501, "&File"};
    Text commandQuit{61502, "&Quit"};
    Text menuView{61503, "&View"};
    Text commandZoomIn{61504, "Zoom &In"};
    Text commandZoomOut{61505, "Zoom &Out"};
    Text commandNextPage{61506, "&Next Page"};
    Text commandBackToAircraft{61507, "&Back to the Aircraft"};
    Text commandAll{66452, "All Commands"};
    Text commandMenuBar{66453, "Men&u Bar"};
    Text commandFullScreen{61508, "&Full Screen"};
    Text menuOptions{61509, "&Options"};
    Text commandNight{61510, "&Day or Night Colours"};
    Text menuSchemes{61511, "&Colour Scheme"};
    Text commandPort{61512, "&GPS Port..."};
    Text commandAltimeter{62135, "A&ltimeter..."};
    Text menuHelp{61513, "&Help"};
    Text commandHelp{61514, "&Getting Started"};
    Text commandAbout{61515, "&About Korvel Pro"};
    Text menuRecent{61530, "&Recent Files"};
    Text commandNewPlan{61531, "&New Flight Plan"};
    Text commandOpenPlan{61532, "&Open Flight Plan..."};
    Text commandSavePlan{61533, "&Save Flight Plan"};
    Text commandSavePlanAs{61534, "Save Flight Plan &As..."};
    Text commandOpenTrack{61535, "Open &Track..."};
    Text commandSaveTrack{61536, "Save T&rack As..."};
    Text noRecentFiles{61537, "No recent files"};
    Text menuNavigate{61548, "&Navigate"};
    Text commandDirectTo{61549, "&Direct-To..."};
    Text commandCourse{62514, "Course to a &Point..."};
    Text commandNearest{61550, "Nea&rest Airports"};
    Text commandClearNavigation{61551, "&Clear Navigation"};
    Text commandRecordTrack{61552, "Record &Track"};
    Text commandSuspend{61553, "S&uspend Leg Changes"};
    Text commandShowPlan{61554, "&Flight Plan"};
    Text commandRoute{61555, "&Enter Route..."};
    Text commandActivate{61556, "&Activate Flight Plan"};
    Text commandRemovePlan{62273, "Re&move Flight Plan"};
    Text commandReverse{61557, "Re&verse Flight Plan"};
    Text commandUndo{61558, "U&ndo Plan Change"};
    Text commandRedo{61559, "Red&o Plan Change"};
    Text commandMeasure{61600, "&Measure"};
    Text commandMark{61604, "&Mark User Fix..."};
    Text commandMarks{61605, "User Fi&xes..."};
    Text commandDeclutter{66363, "De&clutter"};
    Text commandProfile{66416, "Pro&file Under the Map"};
    Text commandRotateNavaids{61617, "Rotate Low/High/Term/VRP/Off Na&vaids"};
    Text commandSimulator{61700, "&Simulator..."};
    Text commandSimulate{61701, "S&imulator On"};
    Text commandPrefs{61715, "&Preferences..."};
    Text commandMapOptions{61716, "&Map..."};
    Text commandViewPages{61717, "&Display Pages..."};
    Text commandKeys{61795, "&Keys"};
    Text commandConnected{61796, "&What Is Connected"};
    Text commandFind{61825, "Fin&d Place..."};
    Text commandReload{61828, "&Load Databases Again"};
    Text commandLoadReport{61829, "&Load Report"};
    Text nextPort{61835, "Choose the receiver's port..."};
    Text nextSimulator{61836, "Fly the simulator"};
    Text nextPlan{61837, "Open a flight plan..."};
    Text colorsDay{66454, "Day"};
    Text colorsNight{66455, "Night"};
    Text commandAcknowledge{61903, "Ac&knowledge Alarm"};
    Text commandApproach{61945, "&Approach..."};
};

inline constexpr CommandTexts kCommandTexts{};

}  // namespace korvel
