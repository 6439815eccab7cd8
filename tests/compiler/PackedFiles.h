#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

namespace korvel::test {

/// A zip file with these names and contents, deflated.
inline std::string zipOf(const std::vector<std::pair<std::string, std::string>>& files) {
    const auto number = [](std::size_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i, value >>= 8U) text += static_cast<char>(value);
        return text;
    };
    std::string zip;
    std::string directory;
    for (const auto& [name, content] : files) {
        z_stream stream{};
        deflateInit2(&stream, 9, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY);
        std::string input = content;
        std::string packed(deflateBound(&stream, static_cast<uLong>(content.size())), '\0');
        stream.next_in = reinterpret_cast<Bytef*>(input.data());
        stream.avail_in = static_cast<uInt>(input.size());
        stream.next_out = reinterpret_cast<Bytef*>(packed.data());
        stream.avail_out = static_cast<uInt>(packed.size());
        deflate(&stream, Z_FINISH);
        packed.resize(stream.total_out);
        deflateEnd(&stream);
        const auto checksum =
            crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
        const std::string common = number(20, 2) + number(0, 2) + number(8, 2) + number(0, 4) + number(checksum, 4) +
                                   number(packed.size(), 4) + number(content.size(), 4) + number(name.size(), 2) +
                                   number(0, 2);
        directory += "PK\x01\x02" + number(20, 2) + common + number(0, 10) + number(zip.size(), 4) + name;
        zip += "PK\x03\x04" + common + name + packed;
    }
    return zip + directory + "PK\x05\x06" + number(0, 4) + number(files.size(), 2) + number(files.size(), 2) +
           number(directory.size(), 4) + number(zip.size(), 4) + number(0, 2);
}

}  // namespace korvel::test
