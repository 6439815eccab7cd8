#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "navdb/file/DatabaseTables.h"

namespace korvel {

/// Lays out a small database file for a test: places in their identifier and location indexes, in
/// the order that the indexes ask for.
class TestDatabase {
 public:
    std::string version = "NavDb4.7";
    std::uint32_t region = 'K';
    std::uint32_t expiry = 20991231;
    bool hasAreaGrid = true;

    using Row = std::vector<std::int32_t>;

    void addAirport(std::string_view ident, double lat, double lon, std::string_view name = "Name",
        std::string_view table = "_APT");
    /// `type` as stored: nibble and usage.
    void addNavaid(std::string_view ident, double lat, double lon, int type, double frequency);
    void addFix(std::string_view ident, double lat, double lon, int type = 0x25);
    void addAirway(std::string_view name, std::string_view route);
    void addRunwayEnd(std::string_view arptId, int number, std::string_view end, int lengthFt);
    void addComm(std::string_view arptId, std::string_view type, double mhz);

    [[nodiscard]] std::vector<std::uint8_t> bytes() const;
    /// Writes the file and returns its path.
    std::filesystem::path write(const std::filesystem::path& folder, std::string_view name) const;

 private:
    struct Keyed {
        std::string key;
        Row row;
    };
    std::int32_t text(std::string_view text);
    static std::vector<Row> byKey(std::vector<Keyed> keyed);

    std::string strings_ = std::string(1, '\0');
    std::vector<Keyed> airports_, secondAirports_, navaids_, fixes_, airways_, runways_, comms_;
};

/// "F" and 7 make "F7".
template <class Number>
std::string numbered(std::string_view prefix, Number number) {
    return std::string(prefix).append(std::to_string(number));
}

void writeBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes);
std::vector<std::uint8_t> readBytes(const std::filesystem::path& path);

}  // namespace korvel
