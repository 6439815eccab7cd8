#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of other programs' files.
struct ExchangeTexts {
    Text unknownFormat{66000, "This is no plan, track or list of waypoints that is known here."};
    Text tornFile{66001, "The file is torn: it does not end as it should."};
    Text fileTooLarge{66002, "The file is too large."};
    Text badCoordinate{66003, "A position in the file is no latitude and longitude."};
    Text tooManyPoints{66004, "The file has more points than can be shown."};
    Text notInTable{66005, "The route names %s, which the file does not describe."};  ///< %s: name
    Text noRoute{66006, "The file has no route."};
    Text noTrack{66007, "The file has no track."};
    Text noWaypoints{66008, "The file has no waypoints."};
    Text noSuchRoute{66009, "The file has no route with this number."};
    Text notFoundHere{66010,
                      "%s is not in the databases: the file's position is used"};  ///< %s: name
    Text liesElsewhere{
        66011,
        "%s lies %s NM away in the databases: the file's position is used"};  ///< %s: name, %s: how
                                                                              ///< far
    Text isCalled{66012, "%s is called %s here"};  ///< %s: name, %s: identifier
};

inline constexpr ExchangeTexts kExchangeTexts{};

}  // namespace korvel
