#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/AsciiText.h"
#include "compiler/sources/AirportRules.h"
#include "compiler/sources/XPlaneImport.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {

namespace {

enum Row : int {
    kLandAirport = 1,
    kSeaplaneBase = 16,
    kHeliport = 17,
    kBeacon = 18,
    kFirstComm = 50,
    kLastComm = 56,
    kRunway = 100,
    kWaterRunway = 101,
    kHelipad = 102,
    kFirstCommKhz = 1050,
    kLastCommKhz = 1056,
    kMetadata = 1302,
};

/// What rows 50 to 56 are for, where the name does not say it.
constexpr std::array<std::string_view, 7> kServices{"ATIS", "UNICOM", "CLNC DEL", "GND",
                                                    "TWR",  "APP",    "DEP"};

struct Surface {
    std::string_view text;
    bool hard = false;
};

/// Asphalt and concrete come in many shades since version 1200.
Surface surfaceOf(int code) {
    if (code == 1 || (code >= 20 && code <= 38))
        return {"ASPH", true};
    if (code == 2 || (code >= 50 && code <= 57))
        return {"CONC", true};
    switch (code) {
        case 3:
            return {"TURF"};
        case 4:
            return {"DIRT"};
        case 5:
            return {"GRVL"};
        case 12:
            return {"LAKEBED"};
        case 13:
            return {"WATER"};
        case 14:
            return {"SNOW"};
        default:
            return {};
    }
}

int metresToFeet(double metres) { return RoundToInt(metres * kFeetPerMetre); }

/// Mean of positions that lie near one another, the 180th meridian no obstacle.
class Middle {
 public:
    void add(const GeoDegrees& position) {
        if (count_++ == 0)
            first_ = position;
        lat_ += position.lat;
        lon_ += nearLongitude(position.lon, first_.lon);
    }
    [[nodiscard]] std::optional<GeoDegrees> position() const {
        if (count_ == 0)
            return std::nullopt;
        return GeoDegrees{lat_ / count_, nearLongitude(lon_ / count_, 0.0)};
    }

 private:
    int count_ = 0;
    GeoDegrees first_;
    double lat_ = 0.0;
    double lon_ = 0.0;
};

/// Gathers the rows of one airport after the other.
class AirportImport {
 public:
    AirportImport(XPlaneFile& file, ImportContext& context, AviationData& data)
        : file_(file), log_(context.log), data_(data) {}

    void take(const Fields& fields) {
        const auto code = wholeInt(fields[0]);
        if (!code) {
            file_.malformed("row code missing");
            return;
        }
        if (*code == kLandAirport || *code == kSeaplaneBase || *code == kHeliport) {
            finish();
            begin(*code, fields);
        } else if (state_ == State::Open) {
            takeDetail(*code, fields);
        } else if (state_ == State::None && *code == kRunway) {
            file_.malformed("runway before the first airport");
        }
    }

    /// Hands over the airport whose rows have ended.
    void finish() {
        if (state_ != State::Open)
            return;
        state_ = State::None;
        const auto position = datumLat_ && datumLon_ ? GeoDegrees{*datumLat_, *datumLon_}
                              : runways_.position()  ? runways_.position()
                                                     : beacon_;
        if (closed_) {
            log_.leftOut("closed airports");
        } else if (!position) {
            log_.leftOut("airports without a runway or position");
        } else {
            airport_.position = *position;
            airport_.isPrivate = isPrivateIdentifier(airport_.ident, *position);
            data_.airports.push_back(std::move(airport_));
        }
    }

 private:
    enum class State : std::uint8_t { None, Open, Skipped };

    /// Columns: code, elevation in feet, two that mean nothing today, identifier, name.
    void begin(int code, const Fields& fields) {
        const auto elevation = wholeDouble(fields[1]);
        if (!elevation || std::abs(*elevation) > 30000.0 || !isIdentifier(fields[4])) {
            file_.malformed("airport without elevation or identifier; its rows are skipped");
            state_ = State::Skipped;
            return;
        }
        state_ = State::Open;
        airport_ = {};
        runways_ = {};
        beacon_.reset();
        datumLat_.reset();
        datumLon_.reset();
        airport_.ident = fields[4];
        airport_.elevationFt = RoundToInt(*elevation);
        airport_.kind = code == kSeaplaneBase ? AirportKind::Seaplane
                        : code == kHeliport   ? AirportKind::Heliport
                                              : AirportKind::Land;
        std::string name = toAsciiText(fields.from(5));
        closed_ = saysClosed(name);
        if (name.size() > 4 && name[0] == '[' && name[2] == ']')
            name.erase(0, 4);
        airport_.info = informationFor(name);
        airport_.name = std::move(name);
    }

    void takeDetail(int code, const Fields& fields) {
        if (code == kRunway)
            takeRunway(fields);
        else if (code == kWaterRunway)
            takeWaterRunway(fields);
        else if (code == kHelipad)
            takeHelipad(fields);
        else if (code >= kFirstComm && code <= kLastComm)
            takeComm(code - kFirstComm, 100.0, fields);
        else if (code >= kFirstCommKhz && code <= kLastCommKhz)
            takeComm(code - kFirstCommKhz, 1000.0, fields);
        else if (code == kBeacon)
            takeBeacon(fields);
        else if (code == kMetadata)
            takeMetadata(fields);
    }

    /// An end's columns from `first` on: designator, latitude, longitude.
    bool takeEnd(const Fields& fields, std::size_t first, SourceRunwayEnd& end) {
        const auto lat = latitudeDeg(fields[first + 1]);
        const auto lon = longitudeDeg(fields[first + 2]);
        if (!lat || !lon || fields[first].empty()) {
            file_.malformed("runway end without designator or position");
            return false;
        }
        end.id = toAsciiText(fields[first]);
        end.position = GeoDegrees{*lat, *lon};
        return true;
    }

    void addRunway(SourceRunway runway) {
        constexpr int kShortestRunwayFt = 25;
        const auto& [one, other] = runway.ends;
        for (const auto& end : runway.ends)
            runways_.add(*end.position);
        runway.lengthFt = lengthBetweenFt(*one.position, *other.position);
        if (*runway.lengthFt < kShortestRunwayFt) {
            file_.malformed("runway whose ends are one place");
            return;
        }
        orderEnds(runway);
        airport_.runways.push_back(std::move(runway));
    }

    /// Columns: code, width, surface, shoulder, roughness, centre lights, edge lights, signs; then
    /// for each end designator, latitude, longitude, displaced threshold, overrun and four more.
    /// Lengths are metres; the positions are the ends of the pavement.
    void takeRunway(const Fields& fields) {
        constexpr std::size_t kLowEnd = 8;
        constexpr std::size_t kHighEnd = 17;
        const auto width = wholeDouble(fields[1]);
        const auto surface = wholeInt(fields[2]);
        if (!width || *width < 0.0 || *width > 10000.0 || !surface) {
            file_.malformed("runway without width or surface");
            return;
        }
        SourceRunway runway;
        runway.widthFt = metresToFeet(*width);
        runway.surface = surfaceOf(*surface).text;
        runway.hard = surfaceOf(*surface).hard;
        runway.lighted = wholeInt(fields[6]).value_or(0) > 0;
        for (const auto& [column, end] : {std::pair{kLowEnd, 0U}, std::pair{kHighEnd, 1U}}) {
            if (!takeEnd(fields, column, runway.ends.at(end)))
                return;
            const double displaced = wholeDouble(fields[column + 3]).value_or(0.0);
            if (displaced >= 1.0)
                noteDisplaced(runway, end, metresToFeet(displaced));
        }
        addRunway(std::move(runway));
    }

    /// Columns: code, width in metres, buoys, then for each end designator, latitude, longitude.
    void takeWaterRunway(const Fields& fields) {
        SourceRunway runway;
        const auto width = wholeDouble(fields[1]);
        if (!width || *width < 0.0 || *width > 10000.0) {
            file_.malformed("water runway without width");
            return;
        }
        runway.widthFt = metresToFeet(*width);
        runway.surface = "WATER";
        if (takeEnd(fields, 3, runway.ends[0]) && takeEnd(fields, 6, runway.ends[1]))
            addRunway(std::move(runway));
    }

    /// Columns: code, designator, latitude, longitude, direction, length and width in metres,
    /// surface. Beside an airport's runways helipads are left out; a heliport consists of them.
    void takeHelipad(const Fields& fields) {
        SourceRunway pad;
        const auto direction = wholeDouble(fields[4]);
        const auto length = wholeDouble(fields[5]);
        const auto width = wholeDouble(fields[6]);
        const auto surface = wholeInt(fields[7]);
        if (!direction || !length || !width || !surface || *length > 10000.0 || *width > 10000.0) {
            file_.malformed("helipad without direction, size or surface");
            return;
        }
        if (!takeEnd(fields, 1, pad.ends[0]))
            return;
        if (airport_.kind != AirportKind::Heliport) {
            log_.leftOut("helipads of airports with runways");
            return;
        }
        pad.ends[0].headingTrue = *direction;
        pad.lengthFt = metresToFeet(*length);
        pad.widthFt = metresToFeet(*width);
        pad.surface = surfaceOf(*surface).text;
        pad.hard = surfaceOf(*surface).hard;
        pad.lighted = wholeInt(fields[10]).value_or(0) > 0;
        runways_.add(*pad.ends[0].position);
        airport_.runways.push_back(std::move(pad));
    }

    void takeComm(int service, double unitsPerMhz, const Fields& fields) {
        const auto units = wholeInt(fields[1]);
        if (!units || *units <= 0) {
            file_.malformed("frequency is not a number");
            return;
        }
        double mhz = *units / unitsPerMhz;
        // In 10 kHz the last digit of a 25 kHz channel is cut off: 118.02 stands for 118.025.
        if (unitsPerMhz == 100.0 && (*units % 10 == 2 || *units % 10 == 7))
            mhz += 0.005;
        if (mhz < 20.0 || mhz > 400.0) {
            file_.malformed("frequency out of range");
            return;
        }
        const auto index = static_cast<std::size_t>(service);
        airport_.comms.push_back({commType(fields.from(2), kServices.at(index)), mhz});
    }

    void takeBeacon(const Fields& fields) {
        const auto lat = latitudeDeg(fields[1]);
        const auto lon = longitudeDeg(fields[2]);
        if (!lat || !lon) {
            file_.malformed("beacon without position");
            return;
        }
        beacon_ = GeoDegrees{*lat, *lon};
        airport_.hasBeacon = wholeInt(fields[3]).value_or(0) > 0;
    }

    void takeMetadata(const Fields& fields) {
        const auto key = fields[1];
        if (key == "datum_lat")
            datumLat_ = latitudeDeg(fields[2]);
        else if (key == "datum_lon")
            datumLon_ = longitudeDeg(fields[2]);
        else if (key == "closed")
            closed_ = closed_ || wholeInt(fields[2]).value_or(0) != 0;
        else if (key == "icao_code" && isIdentifier(fields[2]))
            airport_.ident = fields[2];
    }

    XPlaneFile& file_;
    ImportLog& log_;
    AviationData& data_;
    State state_ = State::None;
    SourceAirport airport_;
    bool closed_ = false;
    Middle runways_;
    std::optional<GeoDegrees> beacon_;
    std::optional<double> datumLat_;
    std::optional<double> datumLon_;
};

}  // namespace

std::string importXPlaneAirports(XPlaneFile& file, ImportContext& context, AviationData& data) {
    if (auto refused = file.readHeader(850, 1299); !refused.empty())
        return refused;
    AirportImport import(file, context, data);
    Fields fields;
    while (file.next(fields))
        import.take(fields);
    import.finish();
    return file.failure();
}

}  // namespace korvel
