#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace korvel {

class CKorvelDoc;

/// What the program works with: the receiver and its port, the databases with their age, and the
/// folders that it looks in for the pilot's own files.
std::string connectedText(const CKorvelDoc& document,
                          std::span<const std::filesystem::path> folders);

/// The databases with their age, how to come by better ones, and the report of the last loading.
std::string loadReportText(const CKorvelDoc& document,
                           std::span<const std::filesystem::path> folders);

/// "expired 2013-10-17" or until when; both days YYYYMMDD, 0 for data without one.
std::string expiryText(std::uint32_t expiry, std::uint32_t today);

}  // namespace korvel
