#include "cockpit/ChartCompiling.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <system_error>
#include <utility>

#include "compiler/sources/XPlaneFolder.h"
#include "config/texts/ChartTexts.h"
#include "platform/FileDate.h"
#include "platform/ThreadPriority.h"
#include "platform/Threading.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::days kUnofficialCycle{28};

/// Of a file, or the oldest one in a folder.
std::optional<std::chrono::sys_days> dateOf(const fs::path& download) {
    std::error_code error;
    if (!fs::is_directory(download, error))
        return fileDate(download);
    std::optional<std::chrono::sys_days> oldest;
    for (fs::directory_iterator each(download, error), end; !error && each != end;
         each.increment(error)) {
        std::error_code unknown;
        if (!each->is_regular_file(unknown))
            continue;
        if (const auto date = fileDate(each->path()))
            oldest = oldest ? std::min(*oldest, *date) : *date;
    }
    return oldest;
}

}  // namespace

ChartCompiling::ChartCompiling(fs::path download, fs::path folder)
    : download_(std::move(download)), folder_(std::move(folder)) {
    thread_ = systemThreading().startThread([this] {
        lowerThreadPriority();
        run();
    });
    if (!thread_.joinable())
        run();
}

ChartCompiling::~ChartCompiling() {
    breakOff();
    if (thread_.joinable())
        thread_.join();
}

void ChartCompiling::run() {
    result_.error = compile();
    finished_ = true;
}

std::string ChartCompiling::compile() {
    const auto source = sourceAt(download_);
    if (!source)
        return std::string(text(kChartTexts.unknownSource));
    if (folder_.empty())
        return std::string(text(kChartTexts.noFolder));
    NavdbBuildOptions options;
    options.source = *source;
    options.folder = download_;
    options.output = folder_ / databaseNameOf(*source);
    options.goesOn = [this] { return wanted_.load(); };
    if (*source == NavdbSource::Xplane) {
        const XPlaneFiles files = findXPlaneFiles(download_);
        options.apt = files.apt;
        options.nav = files.nav;
        options.fix = files.fix;
        options.awy = files.awy;
    } else if (*source == NavdbSource::OurAirports) {
        if (const auto date = dateOf(download_))
            options.expiryYmd = ymdOf(*date + kUnofficialCycle);
    }
    result_.source = *source;
    result_.output = options.output;
    result_.unofficialExpiryYmd = options.expiryYmd.value_or(0);
    return buildNavdb(options, result_.log, [this](double share, std::string_view what) {
        *state_.lock() = {.doing = std::string(what), .percent = static_cast<int>(share * 100)};
    });
}

}  // namespace korvel
