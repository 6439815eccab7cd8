#include "cockpit/ConnectedText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/Text.h"
#include "config/texts/ConnectedTexts.h"
#include "config/texts/ReceiverTexts.h"
#include "navdb/file/DatabaseFile.h"
#include "platform/PathText.h"
#include "receiver/PortSettings.h"

namespace korvel {
namespace {

void addLine(std::string& words, std::string_view line) { words.append(line).append("\n"); }

/// What the pilot can do about a state of the connection.
struct Advice {
    Text state;
    Text advice;
};
constexpr std::array<Advice, 14> kAdvice = {{
    {kReceiverTexts.invalidPort, kConnectedTexts.adviceNoPort},
    {kReceiverTexts.portOpen, kConnectedTexts.advicePortTaken},
    {kReceiverTexts.portMissing, kConnectedTexts.advicePortTaken},
    {kReceiverTexts.portUsed, kConnectedTexts.advicePortTaken},
    {kReceiverTexts.modulePortNotSet, kConnectedTexts.connectedModuleNoPort},
    {kReceiverTexts.lookingUp, kConnectedTexts.adviceNetwork},
    {kReceiverTexts.noSuchHost, kConnectedTexts.adviceNetwork},
    {kReceiverTexts.connecting, kConnectedTexts.adviceNetwork},
    {kReceiverTexts.noConnection, kConnectedTexts.adviceNetwork},
    {kReceiverTexts.cannotListen, kConnectedTexts.adviceNetwork},
    {kReceiverTexts.noActivity, kConnectedTexts.adviceSilent},
    {kReceiverTexts.waitingForNmea, kConnectedTexts.adviceNoNmea},
    {kReceiverTexts.waitingForCourse, kConnectedTexts.adviceSentences},
    {kReceiverTexts.waitingForAltitude, kConnectedTexts.adviceSentences},
}};

std::string_view adviceOn(std::string_view state) {
    const auto* const found =
        std::ranges::find(kAdvice, state, [](const Advice& advice) { return text(advice.state); });
    return text(found == kAdvice.end() ? kConnectedTexts.adviceSky : found->advice);
}

void addReceiver(std::string& words, const CKorvelDoc& document) {
    const CockpitData& data = document.cockpitData();
    if (data.simulated)
        return addLine(words, text(kConnectedTexts.connectedSimulator));
    if (data.status.empty())
        return addLine(words, document.portLabel() + ": " +
                                  formatText(kConnectedTexts.connectedFix, {data.satsInUse}));
    // The label of a port that could not be opened stands in the status: the search is past it.
    const std::size_t end = data.status.find('\n');
    const bool labelled = end != std::string::npos;
    const std::string label = labelled ? data.status.substr(0, end) : document.portLabel();
    const std::string state = labelled ? data.status.substr(end + 1) : data.status;
    if (document.searchesLostReceiver())
        addLine(words, text(kConnectedTexts.connectedPortLost));
    else if (document.searchesPort())
        addLine(words, text(kConnectedTexts.connectedPortSearched));
    addLine(words, label.empty() ? state : label + ": " + state);
    const std::string talker = document.otherTalker();
    const bool isTalker =
        state == formatText(kReceiverTexts.talksOther, {std::string_view(talker)});
    addLine(words, isTalker ? text(kConnectedTexts.adviceTalker) : adviceOn(state));
}

std::string attitudeModule(const CKorvelDoc& document) {
    const Settings& settings = document.settings();
    const std::string label = PortSettings::of(settings.portGyro, settings.baudGyro).label();
    const bool isUsed = settings.gyroConnected != 0 && !settings.portGyro.empty();
    if (settings.viaGyro != 0 && settings.portGyro.empty())
        return std::string(text(kConnectedTexts.connectedModuleNoPort));
    if (settings.viaGyro != 0)
        return formatText(kConnectedTexts.connectedModule, {std::string_view(label)});
    if (!isUsed)
        return std::string(text(kConnectedTexts.connectedNoModule));
    const ModulePort& port = document.modulePort();
    if (!port.failure().empty())
        return label + ": " + port.failure();
    return formatText(port.isHeard() ? kConnectedTexts.connectedModuleHeard
                                     : kConnectedTexts.connectedModuleSilent,
                      {std::string_view(label)});
}

void addGround(std::string& words, const GroundData& ground) {
    const BaseMapFile& map = ground.baseMap().file();
    if (map.isOpen())
        addLine(words, formatText(kConnectedTexts.connectedBaseMap,
                                  {map.name(), std::string_view(dashedDate(map.made()))}));
    else
        addLine(words, text(kConnectedTexts.connectedNoBaseMap));
    for (const AirspaceSet::File& file : ground.airspaces().files())
        addLine(words, formatText(kConnectedTexts.connectedAirspaces,
                                  {file.name, static_cast<int>(file.airspaces)}));
    for (const ObstacleSet::File& file : ground.obstacles().files())
        addLine(words, formatText(kConnectedTexts.connectedObstacles,
                                  {file.name, static_cast<int>(file.obstacles)}));
    for (const std::string& problem : ground.problems())
        addLine(words, "  " + problem);
}

void addDatabases(std::string& words, const CKorvelDoc& document,
                  std::span<const std::filesystem::path> folders) {
    const auto& files = document.charts().database().files();
    addLine(words,
            formatText(kConnectedTexts.connectedDatabases, {static_cast<int>(files.size())}));
    addLine(words, document.charts().notice());
    for (const auto& file : files)
        addLine(words,
                *file->fileName() + "   " +
                    expiryText(file->header().expiry, dateNumber(document.cockpitData().now)));
    addGround(words, document.ground());
    addLine(words, "");
    addLine(words, text(kConnectedTexts.connectedFolders));
    addLine(words, text(kConnectedTexts.connectedFoldersHelp));
    for (const std::filesystem::path& folder : folders)
        if (!folder.empty())
            addLine(words, "  " + textOf(folder));
    if (const auto& report = document.charts().report().path(); !report.empty()) {
        addLine(words, text(kConnectedTexts.connectedReport));
        addLine(words, "  " + textOf(report));
    }
}

/// What is lost with the end of the program, first of all.
void addTroubles(std::string& words, const CKorvelDoc& document) {
    const std::vector<std::string> troubles = document.troubles();
    if (troubles.empty())
        return;
    addLine(words, text(kConnectedTexts.connectedUnsaved));
    for (const std::string& trouble : troubles)
        addLine(words, trouble);
    addLine(words, "");
}

/// Nobody reads more on a screen, and a report of a million lines takes long to lay out.
std::string beginningOf(const std::string& report) {
    constexpr std::size_t kMostBytes = 200000;
    if (report.size() <= kMostBytes)
        return report;
    return report.substr(0, report.rfind('\n', kMostBytes) + 1) +
           std::string(text(kConnectedTexts.loadReportCut));
}

}  // namespace

std::string expiryText(std::uint32_t expiry, std::uint32_t today) {
    if (expiry == 0)
        return std::string(text(kConnectedTexts.connectedUndated));
    return formatText(
        expiry < today ? kConnectedTexts.connectedExpired : kConnectedTexts.connectedExpiry,
        {dashedDate(expiry)});
}

std::string connectedText(const CKorvelDoc& document,
                          std::span<const std::filesystem::path> folders) {
    std::string words;
    addTroubles(words, document);
    addLine(words, text(kConnectedTexts.connectedReceiver));
    addReceiver(words, document);
    addLine(words, "");
    addLine(words, text(kConnectedTexts.connectedAttitude));
    addLine(words, attitudeModule(document));
    addLine(words, "");
    addDatabases(words, document, folders);
    return words;
}

std::string loadReportText(const CKorvelDoc& document,
                           std::span<const std::filesystem::path> folders) {
    const Charts& charts = document.charts();
    std::string words;
    if (charts.database().files().empty())
        addLine(words, text(kConnectedTexts.noDatabaseHelp));
    else if (!charts.notice().empty())
        addLine(words, text(kConnectedTexts.oldDatabaseHelp));
    addLine(words, "");
    addDatabases(words, document, folders);
    addLine(words, "");
    addLine(words, text(kConnectedTexts.loadReportLines));
    return words + beginningOf(charts.report().text());
}

}  // namespace korvel
