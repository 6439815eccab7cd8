#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "compiler/sources/AviationData.h"

namespace korvel {

// What the sources leave to be concluded about airports and runways, the same for all of them.

/// United States identifiers of four characters with two digits and two adjacent letters ("CA54",
/// "81CA", "1OK8") are given to private-use fields only. The sources say nothing better.
bool isPrivateIdentifier(std::string_view ident, const GeoDegrees& position);

/// Closed airports stay in the sources for the sake of the scenery, marked in their names.
bool saysClosed(std::string_view name);

/// Runway number of a designator: 16 of "16L". 0 for helipads and other names.
int runwayNumber(std::string_view designator);

/// Puts the end with the lower number first ("16L" before "34R").
void orderEnds(SourceRunway& runway);

/// Length between the ends in whole feet.
int lengthBetweenFt(const GeoDegrees& a, const GeoDegrees& b);

/// Adds to the runway's information that the threshold of that end lies `feet` inside the pavement;
/// nothing where there is no such figure. To be called for end 0 before end 1.
void noteDisplaced(SourceRunway& runway, std::size_t end, std::optional<int> feet);

/// The full name goes to the information text when the name field, of which 20 characters are
/// shown, cannot hold it.
std::string informationFor(std::string_view fullName);

/// Gives the airport its name, and the town that it serves to its information and to who searches
/// by towns. A name that holds the town says it once.
void nameAirport(SourceAirport& airport, std::string_view fullName, std::string_view town);

/// A frequency's words, such as "SEATTLE APP/DEP": `name`, with the service added when it does not
/// say it itself.
std::string commType(std::string_view name, std::string_view service);

}  // namespace korvel
