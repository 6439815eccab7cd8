#include "navdb/search/PrefixSearch.h"

#include <algorithm>

#include "navdb/search/Editions.h"
#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

enum class Match { Beginning, Whole };

class PrefixSearch {
 public:
    PrefixSearch(const PlaceSources& sources, std::string_view typed, Match match, KindMask kinds,
                 std::size_t rowLimit, std::vector<Place>& places)
        : sources_(sources),
          typed_(typed),
          match_(match),
          kinds_(kinds),
          rowLimit_(rowLimit),
          places_(places) {}

    bool run() {
        places_.clear();
        bool complete = true;
        for (std::size_t number = 0; number < sources_.files.size(); ++number) {
            for (const auto& [name, indexKinds] : kIdentifierIndexes) {
                const IndexEntry* const index = sources_.files[number]->index(name);
                if ((indexKinds & kinds_) == 0 || index == nullptr)
                    continue;
                const std::size_t before = places_.size();
                complete &= searchIndex(static_cast<int>(number), *index);
                dropOutdone(before, static_cast<int>(number));
            }
        }
        if (sources_.userRecords != nullptr)
            addUserRecords(*sources_.userRecords);
        return complete;
    }

 private:
    bool searchIndex(int number, const IndexEntry& index) {
        const DatabaseFile& file = *sources_.files[static_cast<std::size_t>(number)];
        const FieldEntry* const order = orderingField(index);
        if (order == nullptr)
            return true;
        const PlaceFields fields(*index.table);
        const auto rows = file.rows();
        const std::uint32_t first = rows->firstNotBelow(index, *order, typed_);
        for (std::uint32_t row = first; row < index.rowCount() && rows->load(index, row); ++row) {
            const Place place =
                buildPlace(*rows, fields, file, {.file = number, .row = index.rowPosition(row)});
            if (!matches(place.ident.view()))
                return true;
            if (row - first == rowLimit_)
                return false;
            if ((place.kind & kinds_) != 0 && !isExcluded(sources_, place))
                places_.push_back(place);
        }
        return true;
    }

    /// Of what one file has just given. No lock is held here.
    void dropOutdone(std::size_t begin, int file) {
        if (!mayBeOutdone(sources_.files, file))
            return;
        const auto first = places_.begin() + static_cast<std::ptrdiff_t>(begin);
        places_.erase(
            std::remove_if(first, places_.end(),
                           [this](const Place& place) { return isOutdone(sources_, place); }),
            places_.end());
    }

    void addUserRecords(const UserRecordStore& records) {
        if (match_ == Match::Whole) {
            for (const KindMask kind : {kAirportKind, kVorKind, kNdbKind, kFixKind})
                addUserRecord(records.find(makeRecordKey(kind, typed_)));
            return;
        }
        for (const std::string& key : records.keys())
            addUserRecord(records.find(key));
    }

    void addUserRecord(const DatabaseRecord* record) {
        if (record != nullptr && (record->GetKind() & kinds_) != 0 && matches(record->ident.view()))
            places_.push_back(placeOfUser(*record));
    }

    [[nodiscard]] bool matches(std::string_view ident) const {
        return match_ == Match::Whole ? ident == typed_ : ident.starts_with(typed_);
    }

    const PlaceSources& sources_;
    std::string_view typed_;
    Match match_;
    KindMask kinds_;
    std::size_t rowLimit_;
    std::vector<Place>& places_;
};

}  // namespace

bool findPlacesBeginning(const PlaceSources& sources, std::string_view beginning, KindMask kinds,
                         std::size_t rowLimit, std::vector<Place>& places) {
    return PrefixSearch(sources, beginning, Match::Beginning, kinds, rowLimit, places).run();
}

void findPlacesNamed(const PlaceSources& sources, std::string_view ident, KindMask kinds,
                     std::size_t rowLimit, std::vector<Place>& places) {
    PrefixSearch(sources, ident, Match::Whole, kinds, rowLimit, places).run();
}

}  // namespace korvel
