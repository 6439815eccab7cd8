#include "cockpit/GroundData.h"

#include <utility>

#include "config/DataFileSearch.h"

namespace korvel {

void GroundData::open(std::vector<std::filesystem::path> folders) {
    problems_.clear();
    airspaces_.load(folders);
    problems_.assign(airspaces_.problems().begin(), airspaces_.problems().end());
    for (const std::filesystem::path& path : DataFileSearch(std::move(folders)).find("*.map")) {
        std::string error = baseMap_.open(path);
        if (error.empty())
            return;
        problems_.push_back(std::move(error));
    }
}

std::vector<std::string> GroundData::problems() const {
    std::vector<std::string> all = problems_;
    all.insert(all.end(), baseMap_.problems().begin(), baseMap_.problems().end());
    return all;
}

}  // namespace korvel
