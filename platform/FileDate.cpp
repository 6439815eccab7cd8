#include "platform/FileDate.h"

#include <system_error>

namespace korvel {

std::optional<std::chrono::sys_days> fileDate(const std::filesystem::path& path) {
    std::error_code error;
    const auto written = std::filesystem::last_write_time(path, error);
    if (error)
        return std::nullopt;
    // The file clock's zero is the library's own affair: by the distance from now.
    const auto age = std::filesystem::file_time_type::clock::now() - written;
    const auto time = std::chrono::system_clock::now() -
                      std::chrono::duration_cast<std::chrono::system_clock::duration>(age);
    return std::chrono::floor<std::chrono::days>(time);
}

int ymdOf(std::chrono::sys_days day) {
    const std::chrono::year_month_day date{day};
    return static_cast<int>(date.year()) * 10000 +
           static_cast<int>(static_cast<unsigned>(date.month()) * 100 +
                            static_cast<unsigned>(date.day()));
}

}  // namespace korvel
