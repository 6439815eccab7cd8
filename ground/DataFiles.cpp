#include "ground/DataFiles.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "base/Ascii.h"
#include "platform/PathText.h"

namespace korvel {

std::vector<std::filesystem::path> dataFiles(std::span<const std::filesystem::path> folders,
                                             std::span<const std::string_view> endings) {
    std::vector<std::filesystem::path> all;
    for (const std::filesystem::path& folder : folders) {
        std::vector<std::filesystem::path> found;
        std::error_code error;
        for (std::filesystem::directory_iterator i(folder, error), end; !error && i != end;
             i.increment(error)) {
            const std::string name = textOf(i->path().filename());
            if (std::ranges::any_of(endings, [&name](std::string_view ending) {
                    return endsWithIgnoringCase(name, ending);
                }))
                found.push_back(i->path());
        }
        std::ranges::sort(found);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

}  // namespace korvel
