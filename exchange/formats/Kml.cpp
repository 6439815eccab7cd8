#include "exchange/formats/Kml.h"

#include "exchange/XmlText.h"
#include "geo/Units.h"

namespace korvel {
namespace {

std::string document(std::string_view name, const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<kml xmlns=\"http://www.opengis.net/kml/2.2\">\n<Document>\n<name>" +
           xmlText(name) + "</name>\n" + content + "</Document>\n</kml>\n";
}

/// Longitude comes first.
std::string coordinate(GeoPoint position, double altitudeFt) {
    return degreesText(position.lon) + "," + degreesText(position.lat) + "," +
           numberText(altitudeFt / kFeetPerMetre, 1);
}

std::string line(const std::string& coordinates, bool absolute) {
    return "<Placemark><LineString><tessellate>1</tessellate>" +
           std::string(absolute ? "<altitudeMode>absolute</altitudeMode>" : "") + "<coordinates>" +
           coordinates + "</coordinates></LineString></Placemark>\n";
}

}  // namespace

std::string kmlOfPlan(std::string_view name, std::span<const ExportPoint> points) {
    std::string content;
    std::string way;
    for (const ExportPoint& point : points) {
        const std::string at = coordinate(point.position, 0.0);
        content += "<Placemark><name>" + xmlText(point.ident) + "</name><Point><coordinates>" + at +
                   "</coordinates></Point></Placemark>\n";
        way += (way.empty() ? "" : " ") + at;
    }
    return document(name, content + line(way, false));
}

std::string kmlOfTrack(std::span<const std::optional<ForeignTrackPoint>> points) {
    std::string content;
    std::string stretch;
    const auto end = [&] {
        if (!stretch.empty())
            content += line(stretch, true);
        stretch.clear();
    };
    for (const auto& point : points)
        if (point)
            stretch +=
                (stretch.empty() ? "" : " ") + coordinate(point->position, point->altitudeFt);
        else
            end();
    end();
    return document("Track", content);
}

}  // namespace korvel
