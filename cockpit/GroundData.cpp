#include "cockpit/GroundData.h"

#include <utility>

#include "config/DataFileSearch.h"
#include "platform/Threading.h"

namespace korvel {

GroundData::~GroundData() { finishReading(); }

void GroundData::startOpening(std::vector<std::filesystem::path> folders) {
    finishReading();
    mapProblems_.clear();
    for (const std::filesystem::path& path : DataFileSearch(folders).find("*.map")) {
        std::string error = baseMap_.open(path);
        if (error.empty())
            break;
        mapProblems_.push_back(std::move(error));
    }
    terrain_.open(folders);
    reading_ = std::make_unique<Reading>();
    const auto read = [reading = reading_.get(), folders = std::move(folders)] {
        reading->airspaces.load(folders);
        reading->obstacles.load(folders);
        reading->finished = true;
    };
    reading_->thread = systemThreading().startThread(read);
    if (!reading_->thread.joinable())
        read();
}

void GroundData::open(std::vector<std::filesystem::path> folders) {
    startOpening(std::move(folders));
    if (reading_->thread.joinable())
        reading_->thread.join();
    takeLoaded();
}

void GroundData::takeLoaded() {
    if (!reading_ || !reading_->finished)
        return;
    airspaces_.takeOver(std::move(reading_->airspaces));
    obstacles_.takeOver(std::move(reading_->obstacles));
    finishReading();
}

void GroundData::finishReading() {
    if (reading_ && reading_->thread.joinable())
        reading_->thread.join();
    reading_.reset();
}

std::vector<std::string> GroundData::problems() const {
    std::vector<std::string> all = mapProblems_;
    all.insert(all.end(), airspaces_.problems().begin(), airspaces_.problems().end());
    all.insert(all.end(), obstacles_.problems().begin(), obstacles_.problems().end());
    all.insert(all.end(), baseMap_.problems().begin(), baseMap_.problems().end());
    const std::vector<std::string> tiles = terrain_.problems();
    all.insert(all.end(), tiles.begin(), tiles.end());
    return all;
}

}  // namespace korvel
