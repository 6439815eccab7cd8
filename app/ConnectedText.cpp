#include "app/ConnectedText.h"

#include <string_view>

#include "app/CKorvelDoc.h"
#include "config/StringTable.h"
#include "nav/TextNumbers.h"
#include "navdb/DatabaseFile.h"

namespace korvel {
namespace {

void addLine(std::string& words, std::string_view line) { words.append(line).append("\n"); }

std::string receiverState(const CKorvelDoc& document) {
    const CockpitData& data = document.cockpitData();
    if (data.simulated)
        return std::string(text(TextId::ConnectedSimulator));
    return data.status.empty() ? formatText(TextId::ConnectedFix, {data.satsInUse}) : data.status;
}

std::string expiryText(std::uint32_t yyyymmdd) {
    if (yyyymmdd == 0)
        return std::string(text(TextId::ConnectedUndated));
    std::string date = formatInt(yyyymmdd);
    if (date.size() == 8)
        date.insert(6, "-").insert(4, "-");
    return formatText(TextId::ConnectedExpiry, {std::string_view(date)});
}

void addDatabases(std::string& words, const CKorvelDoc& document,
                  std::span<const std::filesystem::path> folders) {
    const auto& files = document.navigator().database().files();
    addLine(words, formatText(TextId::ConnectedDatabases, {static_cast<int>(files.size())}));
    addLine(words, document.navigator().databaseNotice());
    for (const auto& file : files)
        addLine(words, *file->fileName() + "   " + expiryText(file->header().expiry));
    addLine(words, "");
    addLine(words, text(TextId::ConnectedFolders));
    addLine(words, text(TextId::ConnectedFoldersHelp));
    for (const std::filesystem::path& folder : folders)
        if (!folder.empty())
            addLine(words, "  " + folder.string());
    if (const auto& report = document.navigator().report().path(); !report.empty()) {
        addLine(words, text(TextId::ConnectedReport));
        addLine(words, "  " + report.string());
    }
}

}  // namespace

std::string connectedText(const CKorvelDoc& document,
                          std::span<const std::filesystem::path> folders) {
    std::string words;
    addLine(words, text(TextId::ConnectedReceiver));
    addLine(words, receiverState(document));
    const std::string& port = document.settings().port;
    addLine(words, port.empty() ? std::string(text(TextId::ConnectedPortSearched))
                                : formatText(TextId::ConnectedPort, {std::string_view(port)}));
    addLine(words, "");
    addDatabases(words, document, folders);
    return words;
}

std::string loadReportText(const CKorvelDoc& document,
                           std::span<const std::filesystem::path> folders) {
    const Navigator& navigator = document.navigator();
    std::string words;
    if (navigator.database().files().empty())
        addLine(words, text(TextId::NoDatabaseHelp));
    else if (!navigator.databaseNotice().empty())
        addLine(words, text(TextId::OldDatabaseHelp));
    addLine(words, "");
    addDatabases(words, document, folders);
    addLine(words, "");
    addLine(words, text(TextId::LoadReportLines));
    return words + navigator.report().text();
}

}  // namespace korvel
