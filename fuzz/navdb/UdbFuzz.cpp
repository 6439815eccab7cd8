// A user's text file says anything.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "navdb/user/UserDatabaseReader.h"
#include "navdb/user/UserRecordStore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;  // NOLINT(google-build-using-namespace): the entry point is global
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("korvel-fuzz-" + std::to_string(::getpid()));
    std::filesystem::remove(path);
    std::ofstream(path, std::ios::binary) << std::string(data, data + size);
    LoadReport report;
    UserRecordStore records;
    UserDatabaseReader reader(report, [&](std::unique_ptr<DatabaseRecord> record) {
        (void)record->GetInfoText();
        const std::string key = record->key;
        records.add(std::move(record));
        if (key.size() % 3 == 0)
            records.remove(key);
    });
    (void)reader.LoadFile(path);
    return 0;
}
