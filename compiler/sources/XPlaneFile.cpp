#include "compiler/sources/XPlaneFile.h"

#include <utility>

#include "base/Ascii.h"
namespace korvel {

XPlaneFile::XPlaneFile(std::string name, std::unique_ptr<ByteSource> source, ImportContext& context)
    : name_(std::move(name)), lines_(std::move(source)), context_(context) {}

std::string XPlaneFile::readHeader(int oldest, int newest) {
    std::string_view line;
    std::string notXPlane = name_ + ": not an X-Plane data file";
    if (!lines_.next(line))
        return lines_.failed() ? failure() : notXPlane;
    // Some writers leave the first line empty.
    const auto origin = trimmed(line);
    if (!origin.empty() && !origin.starts_with('I') && !origin.starts_with('A'))
        return notXPlane;
    if (!lines_.next(line))
        return lines_.failed() ? failure() : notXPlane;
    Fields fields;
    fields.split(line);
    const auto version = wholeInt(fields[0]);
    if (!version)
        return notXPlane;
    version_ = *version;
    if (version_ < oldest || version_ > newest)
        return name_ + ": format version " + std::to_string(version_) + " is not supported (" +
               std::to_string(oldest) + " to " + std::to_string(newest) + " are)";
    cycle_ = AiracCycle::namedIn(line);
    return {};
}

bool XPlaneFile::next(Fields& fields) {
    constexpr std::size_t kLinesPerReport = 4096;
    std::string_view line;
    while (lines_.next(line)) {
        if (lines_.number() % kLinesPerReport == 0 && context_.progress)
            context_.progress(lines_.share());
        fields.split(line);
        if (fields.size() == 1 && fields[0] == "99")
            return false;
        if (fields.size() != 0)
            return true;
    }
    return false;
}

void XPlaneFile::malformed(std::string_view reason) {
    context_.log.malformed(name_, lines_.number(), reason);
}

std::string XPlaneFile::failure() const {
    if (!lines_.failed())
        return {};
    return name_ + ": reading failed behind line " + std::to_string(lines_.number());
}

}  // namespace korvel
