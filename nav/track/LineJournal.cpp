#include "nav/track/LineJournal.h"

#include <array>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

std::optional<std::string> LineJournal::completeLines() const {
    auto text = path_.empty() ? std::string() : readWholeFile(path_, kWholeFile, disk_);
    if (!text)
        return disk_.exists(path_) ? std::nullopt : std::optional(std::string());
    const std::size_t end = text->rfind(kLineEnd);
    text->resize(end == std::string::npos ? 0 : end + kLineEnd.size());
    return text;
}

std::string LineJournal::trouble() const {
    return formatText(kFlightTexts.fileNotWritten, {textOf(path_.filename())});
}

std::string LineJournal::append(std::string_view lines) {
    if (path_.empty() || lines.empty())
        return {};
    if (!file_ && !open()) {
        file_.reset();
        return trouble();
    }
    const auto before = file_->size();
    if (before && file_->write(lines))
        return {};
    wholeSize_ = before;
    cutBack();
    file_.reset();
    return trouble();
}

bool LineJournal::open() {
    file_ = disk_.openForAppending(path_);
    return file_ && cutBack() && mendEnd();
}

bool LineJournal::mendEnd() {
    const auto torn = isTorn();
    if (!torn || !*torn)
        return torn.has_value();
    if (tornLine_ == TornLine::End)
        return file_->write(kLineEnd);
    const auto whole = completeLines();
    return whole && file_->cutTo(whole->size());
}

/// Takes away what a write that failed has left behind, now or when the file is opened again.
bool LineJournal::cutBack() {
    if (wholeSize_ && file_->cutTo(*wholeSize_))
        wholeSize_.reset();
    return !wholeSize_;
}

/// Whether the file ends within a line; nothing when that cannot be read.
std::optional<bool> LineJournal::isTorn() const {
    const auto file = disk_.openRandomAccess(path_);
    if (!file)
        return std::nullopt;
    const std::uint64_t size = file->size();
    std::array<std::uint8_t, kLineEnd.size()> last{};
    if (size < last.size())
        return size != 0;
    if (file->readAt(size - last.size(), last) != last.size())
        return std::nullopt;
    return last != std::array<std::uint8_t, kLineEnd.size()>{'\r', '\n'};
}

std::string LineJournal::replace(std::string_view lines) {
    if (path_.empty())
        return {};
    file_.reset();
    if (!writeFileAtomically(path_, lines, disk_))
        return trouble();
    wholeSize_.reset();
    return {};
}

void LineJournal::remove() {
    file_.reset();
    wholeSize_.reset();
    if (!path_.empty())
        disk_.remove(path_);
}

bool LineJournal::moveTo(const std::filesystem::path& destination) {
    file_.reset();
    if (!exists())
        return true;
    if (!disk_.rename(path_, destination))
        return false;
    wholeSize_.reset();
    return true;
}

bool LineJournal::exists() const { return !path_.empty() && disk_.exists(path_); }

}  // namespace korvel
