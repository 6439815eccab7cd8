#include "tools/PngPicture.h"

#include "platform/Folders.h"
#include "platform/SharedLibrary.h"
#include "tools/png/PngModule.h"

namespace korvel {

std::string makePng(int width, int height, const std::function<void(Canvas&)>& paint,
                    std::string& png) {
    // Never unloaded: the toolkit may have threads that end after it.
    static SharedLibrary module;
    const std::string name = kPngModule + std::string(SharedLibrary::suffix());
    if (const std::string error = module.load(executableFolder() / name); !error.empty())
        return "What draws PNG is not there: " + error;
    auto* const draw = module.function<PngFunction>(kPngFunction);
    if (draw == nullptr || !draw(width, height, paint, png))
        return "The picture could not be drawn";
    return {};
}

}  // namespace korvel
