#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what became of the databases, and what their places are called.
struct DatabaseTexts {
    Text loadStatus{62300, "Current Korvel Load Status"};
    Text loading{62301, "Loading %s"};  ///< %s: file
    Text aborting{62302, "Aborting"};
    Text done{62303, "Done"};
    Text fileOpenError{62304, "File Open Error"};
    Text invalidFormat{62305, "Invalid Format"};
    Text incorrectFormat{62306, "Incorrect Format"};
    Text updateFormat{62307, "Incorrect Format...Update!"};
    Text corruptedFile{62308, "Corrupted file"};
    /// %s: key, %s: kinds of files
    Text notUsed{62309, "Nav %s not used. Already exists in a %s file."};
    Text airportReplaced{
        62310, "Airport %s in .NG2 file replaced w/ entry in .UDB.TXT file."};  ///< %s: name
    // A user's own file; its fields are called by the names that stand in it.
    Text userFileOpenError{62311, "File open error."};
    Text fileReadError{62312, "File read error"};
    Text fileEndedInRecord{62313, "File ended before record-end."};
    Text lineError{62314, "Line %d: ERROR %s"};      ///< %d: line, %s: what is wrong
    Text lineWarning{62315, "Line %d: WARNING %s"};  ///< %d: line, %s: what is wrong
    Text equalsNotFound{62316, "'=' not found"};
    Text noKey{62317, "No key value found."};
    Text airportEndNotFound{62318, "Airport end-line not found"};
    Text navaidEndNotFound{62319, "Navaid end-line not found"};
    Text fieldNotFound{62320, "%s field not found."};  ///< %s: field
    Text fieldTooLong{62321, "%s field too long."};    ///< %s: field
    Text invalidField{62322, "Invalid %s field."};     ///< %s: field
    Text invalidValue{62323, "Invalid %s."};           ///< %s: field
    Text invalidCoordinate{62324, "Invalid %s: %s"};   ///< %s: field, %s: what stands there
    // An airport; the first of several begins with a capital.
    Text seaplaneBase{62330, "seaplane base"};
    Text heliport{62331, "heliport"};
    Text privateAirport{62332, "private"};
    Text tower{62333, "tower"};
    Text hardSurface{62334, "hard surface"};
    Text lighted{62335, "lighted"};
    Text beacon{62336, "beacon"};
};

inline constexpr DatabaseTexts kDatabaseTexts{};

}  // namespace korvel
