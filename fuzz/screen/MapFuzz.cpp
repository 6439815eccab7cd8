// Places of a database that says anything are looked for, brought to the map at a range and painted
// there, as the sheet of an airport paints them.
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>

#include "MemoryFiles.h"
#include "cockpit/CockpitData.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "map/MapPainter.h"
#include "map/feeds/MapFeeds.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/DatabaseLayout.h"
#include "navdb/file/LittleEndian.h"
#include "navdb/search/NameSearch.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "platform/VirtualClock.h"

namespace korvel {
namespace {

constexpr const char* kFile = "a.ng2";
constexpr int kMostUpdates = 20;  // a place has as many pieces as the file claims

void lookFor(const NavDatabase& database, std::string_view words) {
    std::vector<Place> found;
    (void)database.placesBeginning(words, kAllKinds, 50, found);
    for (const Place& place : found)
        (void)database.recordOf(place);
    database.placesNamed(words, kAllKinds, 50, found);
    for (const NamedPlace& named : database.placesByName(words, kAllKinds, GeoPoint{0.8, 0.1}, 20))
        (void)database.recordOf(named.place);
}

void paint(NavDatabase& database, GeoPoint center, int rangeNm, int upDeg) {
    static const ColorScheme scheme;
    static const MapColorCache colors(scheme);
    RecordingCanvas canvas(800, 480);
    MapViewport viewport;
    viewport.layout(PageId::Map, 800, 480);
    viewport.setRange(rangeNm);
    CockpitData data;
    data.position = center;
    MapContent content{
        .data = data, .colors = colors, .view = {viewport, center, upDeg, canvas.area()}};
    MapFeeds feeds(database);
    for (int i = 0; i < kMostUpdates && !feeds.isComplete(); ++i)
        feeds.update({content.view, data, Settings()});
    feeds.update({content.view, data, Settings()});
    feeds.addTo(content);
    paintMap(canvas, content);
}

}  // namespace
}  // namespace korvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    FuzzedDataProvider input(data, size);
    const GeoPoint center{input.ConsumeFloatingPointInRange(-kPi / 2, kPi / 2),
                          input.ConsumeFloatingPointInRange(-kPi, kPi)};
    const int range = input.PickValueInArray(kRangeStepsNm);
    const int upDeg = input.ConsumeIntegralInRange(0, 359);
    const std::string words = input.ConsumeRandomLengthString(12);
    auto bytes = input.ConsumeRemainingBytes<std::uint8_t>();
    if (bytes.size() < kHeaderSize)
        return 0;
    storeU32(bytes, kFullChecksumOffset, 0);
    storeU32(bytes, kHeaderChecksumOffset,
             headerChecksum(bytes, static_cast<std::uint32_t>(bytes.size())));
    const VirtualClock clock;
    MemoryFiles disk;
    disk.put(kFile, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    NavDatabase database(clock, disk);
    if (!database.openFile(kFile).empty())
        return 0;
    lookFor(database, words);
    paint(database, center, range, upDeg);
    return 0;
}
