#include "cockpit/AttitudeModule.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/Folders.h"
#include "platform/PathText.h"

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
                      {std::string_view(textOf(path.filename()))});
}

void AttitudeModule::setListening(bool on) {
    const auto inbox = inbox_.lock();
    inbox->open = on;
    if (!on)
        inbox->sentences.clear();  // too old when the page is shown again
}

void AttitudeModule::processMessage(std::string_view sentence) {
    constexpr std::size_t kMostWaiting = 64;
    if (!isLoaded())
        return;
    const auto inbox = inbox_.lock();
    if (!inbox->open)
        return;
    if (inbox->sentences.size() == kMostWaiting)
        inbox->sentences.erase(inbox->sentences.begin());
    inbox->sentences.emplace_back(sentence);
}

bool AttitudeModule::draw(KorvelPicture picture, std::int64_t nowMs) {
    if (!isLoaded() || picture.width <= 0 || picture.height <= 0)
        return false;
    picture.size = sizeof picture;
    for (const std::string& sentence : std::exchange(inbox_.lock()->sentences, {}))
        processMessage_(sentence.c_str());
    const bool alive = checkAlive_(nowMs) != 0;
    draw_(&picture);
    return alive;
}

}  // namespace korvel
