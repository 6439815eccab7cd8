#include "compiler/TownsCompiler.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "compiler/NavdbWriter.h"
#include "compiler/sources/TownsImport.h"
#include "navdb/search/NameWords.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

/// Towns do not go out of date with the charts.
constexpr int kNeverYmd = 99991231;

std::string compileTowns(const std::vector<SourceTown>& towns) {
    std::vector<std::pair<std::string, const SourceTown*>> words;
    for (const SourceTown& town : towns)
        for (std::string& word : nameWords(town.name))
            words.emplace_back(std::move(word), &town);
    std::ranges::stable_sort(words, {}, &std::pair<std::string, const SourceTown*>::first);
    NavdbWriter writer;
    for (const auto& [word, town] : words)
        writer.addText(word);  // side by side, as they are searched
    NavdbRows rows{kTownFields};
    for (const auto& [word, town] : words) {
        rows.begin(word);
        rows.text(writer.addText(word));
        rows.degrees(town->position.lat);
        rows.degrees(town->position.lon);
        rows.text(writer.addText(town->name));
        rows.integer(town->isCity ? 1 : 0);
    }
    writer.addIndex("TwnKey", writer.addTable("_TWN", rows.fields()), rows.inTextOrder());
    return writer.finish({.expiryYmd = kNeverYmd});
}

}  // namespace

std::string buildTowns(const std::filesystem::path& input, const std::filesystem::path& output,
                       ImportLog& log) {
    auto source = openTextFile(input);
    if (!source)
        return "File Open Error: " + textOf(input);
    ImportContext context{log, {}};
    std::vector<SourceTown> towns;
    if (auto refused = importTowns(textOf(input.filename()), std::move(source), context, towns);
        !refused.empty())
        return refused;
    log.took("towns", towns.size());
    return writeFileAtomically(output, compileTowns(towns)) ? std::string()
                                                            : "File Write Error: " + textOf(output);
}

}  // namespace korvel
