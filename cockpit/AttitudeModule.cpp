#include "cockpit/AttitudeModule.h"

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/Folders.h"

namespace korvel {

AttitudeModule::AttitudeModule(const std::filesystem::path& folder) {
    if (folder.empty())
        return;
    const auto libraries = findFiles(folder, "*" + std::string(SharedLibrary::suffix()));
    if (!libraries.empty())
        error_ = load(libraries.front());
}

std::string AttitudeModule::load(const std::filesystem::path& path) {
    if (std::string error = library_.load(path); !error.empty())
        return error;
    processMessage_ = library_.function<decltype(ProcessMessage)>("ProcessMessage");
    checkAlive_ = library_.function<decltype(CheckAlive)>("CheckAlive");
    draw_ = library_.function<decltype(Draw)>("Draw");
    if (draw_ != nullptr && processMessage_ != nullptr && checkAlive_ != nullptr)
        return {};
    draw_ = nullptr;
    return formatText(kFlightTexts.pluginLacksFunctions,
                      {std::string_view(path.filename().string())});
}

void AttitudeModule::processMessage(std::string_view sentence) {
    if (!isLoaded() || !listening_)
        return;
    const std::string terminated(sentence);
    const std::lock_guard held(lock_);
    processMessage_(terminated.c_str());
}

bool AttitudeModule::draw(KorvelPicture picture, std::int64_t nowMs) {
    if (!isLoaded() || picture.width <= 0 || picture.height <= 0)
        return false;
    picture.size = sizeof picture;
    const std::lock_guard held(lock_);
    const bool alive = checkAlive_(nowMs) != 0;
    draw_(&picture);
    return alive;
}

}  // namespace korvel
