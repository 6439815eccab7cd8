#include "config/Translation.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/TextNumbers.h"
#include "base/Utf8.h"
#include "config/DataFileSearch.h"
#include "config/texts/AllTexts.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr std::size_t kFileLimit = 1 << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

const std::map<int, std::string_view>& englishTexts() {
    static const std::map<int, std::string_view> kEnglish = [] {
        std::map<int, std::string_view> english;
        for (const Text& text : allTexts())
            english.emplace(text.number, text.english);
        return english;
    }();
    return kEnglish;
}

/// What stands behind each "%", in turn.
std::string placeholders(std::string_view text) {
    std::string kinds;
    for (std::size_t at = text.find('%'); at < text.size(); at = text.find('%', at + 2))
        kinds += at + 1 < text.size() ? text[at + 1] : '%';
    return kinds;
}

bool isControl(char letter) { return static_cast<unsigned char>(letter) < ' ' || letter == '\x7F'; }

std::optional<std::string> unescaped(std::string_view words) {
    std::string result;
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (words[at] != '\\') {
            result += words[at];
            continue;
        }
        const char next = ++at < words.size() ? words[at] : '\0';
        if (next != 'n' && next != '\\')
            return std::nullopt;
        result += next == 'n' ? '\n' : '\\';
    }
    return result;
}

std::string_view takeLine(std::string_view& bytes) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::optional<Translation> readTranslation(const DataFileSearch& files,
                                           const std::string& language) {
    for (const auto& path : files.pathsOf(language + ".lang"))
        if (const auto bytes = readWholeFile(path, kFileLimit))
            return Translation(*bytes, language);
    return std::nullopt;
}

Translation& translationInUse() {
    static Translation translation;
    return translation;
}

}  // namespace

Translation::Translation(std::string_view bytes, std::string language)
    : language_(std::move(language)) {
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    for (int number = 1; !bytes.empty(); ++number) {
        const std::string_view line = takeLine(bytes);
        if (!line.empty() && !line.starts_with('#') && !take(line))
            refusedLines_.push_back(number);
    }
}

bool Translation::take(std::string_view line) {
    const std::optional<int> number = scanInt(line);
    const auto english = englishTexts().find(number.value_or(0));
    if (english == englishTexts().end() || !line.starts_with(' '))
        return false;
    line.remove_prefix(1);
    if (line.empty() || !isUtf8(line) || std::ranges::any_of(line, isControl))
        return false;
    auto words = unescaped(line);
    if (!words || placeholders(*words) != placeholders(english->second))
        return false;
    return words_.emplace(english->first, *std::move(words)).second;
}

const std::string* Translation::find(int number) const {
    const auto found = words_.find(number);
    return found == words_.end() ? nullptr : &found->second;
}

Translation findTranslation(const DataFileSearch& files, std::span<const std::string> languages) {
    for (const std::string& tag : languages) {
        const std::string language = tag.substr(0, tag.find_first_of("-_"));
        if (language == "en")
            break;
        for (const std::string& name : {tag, language})
            if (auto translation = readTranslation(files, name))
                return *std::move(translation);
    }
    return {};
}

void useTranslation(Translation translation) { translationInUse() = std::move(translation); }

std::string_view wordsInUse(const Text& text) {
    const std::string* const words = translationInUse().find(text.number);
    return words ? std::string_view(*words) : text.english;
}

}  // namespace korvel
