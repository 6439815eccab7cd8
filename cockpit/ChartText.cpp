#include "cockpit/ChartText.h"

#include <initializer_list>
#include <string_view>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "cockpit/ConnectedText.h"
#include "config/Text.h"
#include "config/texts/ChartTexts.h"
#include "navdb/file/DatabaseFile.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

int rowsOf(const DatabaseFile& file, std::initializer_list<std::string_view> indexes) {
    std::uint32_t rows = 0;
    for (const std::string_view name : indexes)
        if (const auto* index = file.index(name))
            rows += index->rowCount();
    return static_cast<int>(rows);
}

std::string fileText(const DatabaseFile& file, std::uint32_t today) {
    std::string words = *file.fileName() + "\n  " + expiryText(file.header().expiry, today);
    if (file.header().dataCycle != 0)
        words += ", " + formatText(kChartTexts.cycle,
                                   {zeroPadded(static_cast<int>(file.header().dataCycle), 4)});
    words += "\n  ";
    words += formatText(kChartTexts.counts,
                        {rowsOf(file, {"AptKey", "Ap2Key"}), rowsOf(file, {"NavKey"}),
                         rowsOf(file, {"WptKey"}), rowsOf(file, {"Airway"})});
    return words + "\n";
}

void addCounts(std::string& words, Text title, const ImportLog::Counts& counts) {
    if (counts.empty())
        return;
    words.append("\n").append(text(title)).append("\n");
    for (const auto& [what, count] : counts)
        words.append("  " + std::to_string(count) + " ").append(what).append("\n");
}

Text licenceOf(NavdbSource source) {
    switch (source) {
        case NavdbSource::Nasr:
            return kChartTexts.licenceNasr;
        case NavdbSource::Xplane:
            return kChartTexts.licenceXPlane;
        case NavdbSource::OurAirports:
            break;
    }
    return kChartTexts.licenceOurAirports;
}

}  // namespace

std::string chartsText(const Charts& charts, std::uint32_t today) {
    const auto& files = charts.database().files();
    std::string words(text(files.empty() ? kChartTexts.none : kChartTexts.inUse));
    words += "\n";
    for (const auto& file : files)
        words += fileText(*file, today);
    for (const DatabaseLoader::OpenedFile& file : charts.openedFiles())
        if (!file.error.empty())
            words += file.name + "\n  " + file.error + "\n";
    return words;
}

std::string compiledText(const ChartCompiling& compiling) {
    const ChartCompiling::Result& result = compiling.result();
    if (!result.error.empty() && compiling.isBrokenOff())
        return std::string(text(kChartTexts.stopped)) + "\n";
    if (!result.error.empty())
        return formatText(kChartTexts.notCompiled, {std::string_view(result.error)}) + "\n";
    std::string words = formatText(kChartTexts.compiled, {textOf(result.output)}) + "\n";
    words.append(text(licenceOf(result.source))).append("\n");
    if (result.unofficialExpiryYmd != 0) {
        const auto expiry = static_cast<std::uint32_t>(result.unofficialExpiryYmd);
        words += formatText(kChartTexts.unofficial, {dashedDate(expiry)}) + "\n";
    }
    addCounts(words, kChartTexts.taken, result.log.takenCounts());
    addCounts(words, kChartTexts.leftOut, result.log.leftOutCounts());
    addCounts(words, kChartTexts.malformed, result.log.malformedCounts());
    return words;
}

std::string compilingText(const ChartCompiling& compiling) {
    return formatText(kChartTexts.compiling, {textOf(compiling.download().filename())});
}

}  // namespace korvel
