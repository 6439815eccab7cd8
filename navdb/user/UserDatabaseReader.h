#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "navdb/LoadReport.h"
#include "navdb/user/UserRecordBuilder.h"
#include "platform/FileSystem.h"

namespace korvel {

/// Reads a user's "*.UDB.TXT" file: records in key=value lines between ARPT_BEGIN and ARPT_END or
/// NAVAID_BEGIN and NAVAID_END. Every problem goes to the load report with its line number, and
/// reading goes on with the next line.
class UserDatabaseReader {
 public:
    /// Takes each finished record.
    using RecordSink = std::function<void(std::unique_ptr<DatabaseRecord>)>;

    /// The report must outlive the reader.
    UserDatabaseReader(LoadReport& report, RecordSink sink);

    /// Told from time to time how much of the file has been read, from 0 to 1; false breaks the
    /// reading off.
    void onProgress(std::function<bool(double share)> progress) { progress_ = std::move(progress); }

    /// Empty, or "File open error." and then nothing was reported. One reader reads one file.
    [[nodiscard]] std::string LoadFile(const std::filesystem::path& path,
                                       FileSystem& disk = systemFileSystem());

    /// One line without its end. Empty, or what is wrong with it.
    [[nodiscard]] std::string ParseLine(std::string_view line);

 private:
    bool readLines(const RandomAccessFile& file);
    void takeLine(std::string_view line);
    /// `line` 0 is the one that is being read.
    void logLine(std::string_view message, Severity severity, int line = 0);
    [[nodiscard]] std::string takeField(std::string_view line);
    void finishOpenRecord();
    void endAirport();
    void endNavaid();
    void hand(std::unique_ptr<DatabaseRecord> record);

    LoadReport& report_;
    RecordSink sink_;
    std::function<bool(double share)> progress_;
    std::shared_ptr<const std::string> fileName_;
    int lineNumber_ = 1;
    bool airportIsOpen_ = false;
    bool navaidIsOpen_ = false;
    UserFields pending_;
};

}  // namespace korvel
