#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "navdb/records/DatabaseRecord.h"

namespace korvel {

/// A value, which is never empty, and where it stands.
struct UserField {
    std::string value;
    int line = 0;  ///< from 1
};

/// The key=value lines of one record of a user database.
using UserFields = std::map<std::string, UserField, std::less<>>;

enum class Severity { Error, Warning };

/// Gets the messages about the record that is being built; `line` is that of the field in question,
/// 0 for a message about the record as a whole.
using MessageSink = std::function<void(std::string_view message, Severity severity, int line)>;

// Both return null after an error that drops the record.
std::unique_ptr<DatabaseRecord> buildUserAirport(const UserFields& fields, const MessageSink& log);
std::unique_ptr<DatabaseRecord> buildUserNavaid(const UserFields& fields, const MessageSink& log);

/// Degrees from "DEGREES:MINUTES" or decimal degrees, 0 for an empty text. A leading '-' counts
/// even where the degrees are 0. Nothing for any other text, also for one that only begins like a
/// coordinate ("47,5"): a place that stands somewhere else is worse than none.
std::optional<double> parseUserCoordinate(std::string_view text);

}  // namespace korvel
