#include "navdb/user/UserDatabaseReader.h"

#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "base/Ascii.h"
#include "config/texts/DatabaseTexts.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::size_t kReadBlock = 1024;
constexpr std::uint64_t kTellEvery = 64 * kReadBlock;
constexpr std::size_t kLongestLine = 65536;  // what is longer is cut: no record has such a line

}  // namespace

UserDatabaseReader::UserDatabaseReader(LoadReport& report, RecordSink sink)
    : report_(report), sink_(std::move(sink)) {}

std::string UserDatabaseReader::LoadFile(const std::filesystem::path& path, FileSystem& disk) {
    const auto file = disk.openRandomAccess(path);
    if (!file)
        return std::string(text(kDatabaseTexts.userFileOpenError));
    fileName_ = std::make_shared<const std::string>(textOf(path.filename()));
    report_.AppendLoadReport(formatText(kDatabaseTexts.loading, {textOf(path)}) + "\r\n");
    if (file->size() > 0) {
        if (!readLines(*file))
            return {};
        report_.AppendLoadReport("  " + std::string(text(kDatabaseTexts.done)) + "\r\n\r\n");
    }
    return {};
}

bool UserDatabaseReader::readLines(const RandomAccessFile& file) {
    const std::uint64_t size = file.size();
    std::array<std::uint8_t, kReadBlock> block{};
    std::string line;
    for (std::uint64_t at = 0; at < size;) {
        const double share = static_cast<double>(at) / static_cast<double>(size);
        if (at % kTellEvery == 0 && progress_ && !progress_(share))
            return false;
        const std::size_t count = file.readAt(at, block);
        if (count == 0) {
            logLine(text(kDatabaseTexts.fileReadError), Severity::Error);
            break;
        }
        for (const std::uint8_t byte : std::span(block).first(count)) {
            if (byte == '\n') {
                takeLine(line);
                line.clear();
                ++lineNumber_;
            } else if (line.size() < kLongestLine) {
                line += static_cast<char>(byte);
            }
        }
        at += count;
    }
    takeLine(line);
    if (airportIsOpen_ || navaidIsOpen_)
        logLine(text(kDatabaseTexts.fileEndedInRecord), Severity::Error);
    return true;
}

void UserDatabaseReader::takeLine(std::string_view line) {
    if (const std::string message = ParseLine(line); !message.empty())
        logLine(message, Severity::Error);
}

void UserDatabaseReader::logLine(std::string_view message, Severity severity, int line) {
    const Text& pattern =
        severity == Severity::Error ? kDatabaseTexts.lineError : kDatabaseTexts.lineWarning;
    report_.AppendLoadReport("  " + formatText(pattern, {line != 0 ? line : lineNumber_, message}) +
                             "\r\n");
}

std::string UserDatabaseReader::ParseLine(std::string_view line) {
    line = trimmed(line.substr(0, line.find(';')), " \t\r");
    if (line.empty())
        return {};
    if (line == "ARPT_BEGIN") {
        finishOpenRecord();
        airportIsOpen_ = true;
    } else if (line == "NAVAID_BEGIN") {
        finishOpenRecord();
        navaidIsOpen_ = true;
    } else if (line == "ARPT_END") {
        endAirport();
    } else if (line == "NAVAID_END") {
        endNavaid();
    } else {
        return takeField(line);
    }
    pending_.clear();
    return {};
}

std::string UserDatabaseReader::takeField(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::string(text(kDatabaseTexts.equalsNotFound));
    if (equals == 0)
        return std::string(text(kDatabaseTexts.noKey));
    if (const auto value = line.substr(equals + 1); !value.empty())
        pending_.insert_or_assign(std::string(line.substr(0, equals)),
                                  UserField{.value = std::string(value), .line = lineNumber_});
    return {};
}

void UserDatabaseReader::finishOpenRecord() {
    if (airportIsOpen_) {
        endAirport();
        logLine(text(kDatabaseTexts.airportEndNotFound), Severity::Error);
    }
    if (navaidIsOpen_) {
        endNavaid();
        logLine(text(kDatabaseTexts.navaidEndNotFound), Severity::Error);
    }
}

void UserDatabaseReader::endAirport() {
    airportIsOpen_ = false;
    hand(buildUserAirport(pending_, [this](auto... message) { logLine(message...); }));
}

void UserDatabaseReader::endNavaid() {
    navaidIsOpen_ = false;
    hand(buildUserNavaid(pending_, [this](auto... message) { logLine(message...); }));
}

void UserDatabaseReader::hand(std::unique_ptr<DatabaseRecord> record) {
    if (record) {
        record->origin.fileName = fileName_;
        sink_(std::move(record));
    }
}

}  // namespace korvel
