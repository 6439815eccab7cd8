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

}  // namespace korvel
