#include "config/texts/AllTexts.h"

#include <array>
#include <bit>

#include "config/texts/AircraftTexts.h"
#include "config/texts/BookTexts.h"
#include "config/texts/ChartTexts.h"
#include "config/texts/CommandTexts.h"
#include "config/texts/ConnectedTexts.h"
#include "config/texts/DatabaseTexts.h"
#include "config/texts/ExchangeTexts.h"
#include "config/texts/FileTexts.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/GroundTexts.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/LegendTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/ModeTexts.h"
#include "config/texts/PreferenceTexts.h"
#include "config/texts/ReceiverTexts.h"
#include "config/texts/SheetTexts.h"
#include "config/texts/StatusTexts.h"
#include "config/texts/TouchTexts.h"
#include "config/texts/TrafficTexts.h"

namespace korvel {
namespace {

// A group is a structure of texts and nothing else, so it is an array of them as well.
template <class Group>
void append(std::vector<Text>& all, const Group& group) {
    for (const Text& text : std::bit_cast<std::array<Text, sizeof(Group) / sizeof(Text)>>(group))
        all.push_back(text);
}

template <class... Groups>
std::vector<Text> textsOf(const Groups&... groups) {
    std::vector<Text> all;
    (append(all, groups), ...);
    return all;
}

}  // namespace

std::vector<Text> allTexts() {
    return textsOf(kAircraftTexts, kBookTexts, kChartTexts, kCommandTexts, kConnectedTexts,
                   kDatabaseTexts, kExchangeTexts, kFileTexts, kFlightTexts, kGroundTexts,
                   kInstrumentTexts, kLegendTexts, kMessageTexts, kModeTexts, kPreferenceTexts,
                   kReceiverTexts, kSheetTexts, kStatusTexts, kTouchTexts, kTrafficTexts);
}

}  // namespace korvel
