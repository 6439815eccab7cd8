#include "nav/track/LineJournal.h"

#include <ios>
#include <system_error>

#include "platform/FileIo.h"

namespace korvel {

std::string LineJournal::completeLines() const {
    std::string text = path_.empty() ? std::string() : readWholeFile(path_).value_or("");
    const std::size_t end = text.rfind("\r\n");
    text.resize(end == std::string::npos ? 0 : end + 2);
    return text;
}

void LineJournal::append(std::string_view lines) {
    if (path_.empty() || lines.empty()) {
        return;
    }
    if (!file_.is_open() || !file_) {
        file_.close();
        file_.clear();
        const bool torn = readWholeFile(path_).value_or("").size() != completeLines().size();
        file_.open(path_, std::ios::binary | std::ios::app);
        file_ << (torn ? "\r\n" : "");
    }
    file_.write(lines.data(), static_cast<std::streamsize>(lines.size()));
    file_.flush();
}

void LineJournal::replace(std::string_view lines) {
    if (path_.empty()) {
        return;
    }
    file_.close();
    // When the new text cannot be written, the old one must not be taken for it later.
    if (lines.empty() || !writeFileAtomically(path_, lines)) {
        remove();
    }
}

void LineJournal::remove() {
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void LineJournal::moveTo(const std::filesystem::path& destination) {
    file_.close();
    std::error_code ignored;
    std::filesystem::rename(path_, destination, ignored);
}

}  // namespace korvel
