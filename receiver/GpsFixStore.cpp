#include "receiver/GpsFixStore.h"

#include <utility>

namespace korvel {

GpsFix GpsFixStore::copy() const {
    GpsFix fix = own_;
    const auto shared = shared_.lock();
    fix.sentenceFlags = shared->sentenceFlags;
    fix.fixQuality = shared->fixQuality;
    fix.satellites = shared->satellites;
    return fix;
}

void GpsFixStore::reset() {
    *sky_.lock() = {};
    const auto shared = shared_.lock();
    shared->fixQuality = 0;
    shared->sentenceFlags = 0;
    shared->satellites = {};
    shared->otherTalker.clear();
    own_.satsInUse = 0;
    own_.rmcPositionValid = 0;
}

void GpsFixStore::trace(std::string_view sentence, std::string_view tag) {
    if (tracing_) {
        std::string line(sentence);
        trace(std::move(line.append(1, ':').append(tag)));
    }
}

void GpsFixStore::trace(std::string line) {
    if (!tracing_)
        return;
    constexpr std::size_t kMostLines = 4096;
    const auto shared = shared_.lock();
    if (shared->trace.size() >= kMostLines)
        shared->trace.erase(shared->trace.begin(), shared->trace.begin() + kMostLines / 2);
    shared->trace.push_back(std::move(line));
}

void GpsFixStore::traceBytes(std::string_view bytes, std::string_view tag) {
    if (!tracing_)
        return;
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string legible;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r')
            legible += "\\r";
        else if (c == '\n')
            legible += "\\n";
        else if (c >= ' ' && c <= '~')
            legible += c;
        else
            legible.append("\\x").append(1, kHex[byte / 16]).append(1, kHex[byte % 16]);
    }
    trace(legible, tag);
}

std::vector<std::string> GpsFixStore::takeTrace() {
    return std::exchange(shared_.lock()->trace, {});
}

}  // namespace korvel
