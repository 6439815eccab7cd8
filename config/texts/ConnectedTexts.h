#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the sheet that says what is connected.
struct ConnectedTexts {
    Text connectedTitle{61798, "What Is Connected"};
    Text connectedReceiver{61799, "RECEIVER"};
    Text connectedFix{61800, "A fix, %d satellites in use"};
    Text connectedSimulator{61801, "The simulator flies in its place"};
    Text connectedDatabases{61802, "DATABASES: %d"};
    Text connectedFolders{61803, "YOUR OWN FILES"};
    Text connectedFoldersHelp{61804,
                              "Databases (*.ng2) are looked for in these folders, in this order:"};
    Text connectedReport{61805, "What was loaded and refused stands in:"};
    Text connectedExpiry{61806, "valid until %s"};
    Text connectedPortSearched{61808, "No receiver is chosen: COM1 to COM9 are searched in turn"};
    Text connectedUndated{61809, "undated"};
    Text noDatabaseHelp{
        61832,
        "No database was found: the map works without places. To build one from open data, run\n"
        "  korvelctl navdb build --from ourairports --dir FOLDER\n"
        "or, from X-Plane's files,\n"
        "  korvelctl navdb build --from xplane --apt apt.dat --nav nav.dat --fix fix.dat "
        "--awy awy.dat\n"
        "It goes into your documents folder: then load the databases again (F5)."};
    Text oldDatabaseHelp{
        61833,
        "The charts are out of date: fly by current ones. The database that comes with the program "
        "is old open data, for trying out."};
    Text loadReportLines{61834, "REPORT"};
    Text connectedUnsaved{62263, "NOT SAVED"};
    Text loadReportCut{62264, "... The rest stands in the file."};
    Text connectedAttitude{61838, "ATTITUDE"};
    Text connectedNoModule{61839, "No module is read: pitch and bank are derived from the flight"};
    Text connectedModule{61840,
                         "%s: the receiver speaks through the module"};  ///< %s: port and speed
    Text connectedModuleNoPort{
        61841,
        "The receiver speaks through the module, but the module's port is not set (Preferences)"};
    Text connectedModuleHeard{62122, "%s: the module is heard"};           ///< %s: port and speed
    Text connectedModuleSilent{62123, "%s: the port is open and silent"};  ///< %s: port and speed
    Text connectedPortLost{
        62124,
        "The receiver is gone from its port: it is looked for there and on COM1 to COM16 in turn"};
    Text adviceNoPort{61842, "This computer has no such port: is the receiver plugged in?"};
    Text advicePortTaken{61843,
                         "Another program uses this port, or this user may not open it "
                         "(on Linux: join the group dialout)"};
    Text adviceSilent{61844, "The port is open and silent: is the receiver switched on?"};
    Text adviceNoNmea{
        61845, "Something is heard, but not NMEA 0183: check the speed and the receiver's output"};
    Text adviceSentences{
        61846, "The receiver must send RMC or VTG, and GGA: switch them on in its settings"};
    Text adviceTalker{62136,
                      "It must send RMC or VTG, and GGA, as GP, or all satellite systems must be "
                      "heard (Options, GPS Port)"};
    Text adviceNetwork{62425, "Is the device on, in the same network, and is the address right?"};
    Text adviceSky{61847, "The receiver is heard but has no position: does it see the sky?"};
    Text connectedBaseMap{62410, "BASE MAP: %s, of %s"};  ///< %s: file name, date
    Text connectedNoBaseMap{62411, "BASE MAP: none; the map works without land and water"};
    Text connectedAirspaces{62412, "AIRSPACES: %s, %d read"};  ///< %s: file name
    Text connectedObstacles{66314, "OBSTACLES: %s, %d read"};  ///< %s: file name
    Text connectedExpired{61920, "expired %s"};                ///< %s: date
};

inline constexpr ConnectedTexts kConnectedTexts{};

}  // namespace korvel
