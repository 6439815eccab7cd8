#include "navdb/search/PrefixSearch.h"

#include <array>
#include <utility>

#include "navdb/search/PlaceRows.h"

namespace korvel {
namespace {

constexpr std::array<std::pair<std::string_view, KindMask>, 4> kIdentifierIndexes{
    {{"AptKey", kAirportKind},
     {"Ap2Key", kAirportKind},
     {"NavKey", kVorKind | kNdbKind},
     {"WptKey", kFixKind}}};

class PrefixSearch {
 public:
    PrefixSearch(const PlaceSources& sources, std::string_view beginning, KindMask kinds,
                 std::size_t rowLimit, std::vector<Place>& places)
        : sources_(sources),
          beginning_(beginning),
          kinds_(kinds),
          rowLimit_(rowLimit),
          places_(places) {}

    bool run() {
        places_.clear();
        bool complete = true;
        for (std::size_t number = 0; number < sources_.files.size(); ++number) {
            for (const auto& [name, indexKinds] : kIdentifierIndexes) {
                const IndexEntry* const index = sources_.files[number]->index(name);
                if ((indexKinds & kinds_) != 0 && index != nullptr)
                    complete &= searchIndex(static_cast<int>(number), *index);
            }
        }
        addUserRecords();
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
        const std::uint32_t first = rows->firstNotBelow(index, *order, beginning_);
        for (std::uint32_t row = first; row < index.rowCount() && rows->load(index, row); ++row) {
            const Place place =
                buildPlace(*rows, fields, file, {.file = number, .row = index.rowPosition(row)});
            if (!place.ident.view().starts_with(beginning_))
                return true;
            if (row - first == rowLimit_)
                return false;
            if ((place.kind & kinds_) != 0 && !isExcluded(sources_, place))
                places_.push_back(place);
        }
        return true;
    }

    void addUserRecords() {
        if (sources_.userRecords == nullptr)
            return;
        for (const std::string& key : sources_.userRecords->keys()) {
            const DatabaseRecord* const record = sources_.userRecords->find(key);
            if ((record->GetKind() & kinds_) != 0 && record->ident.view().starts_with(beginning_))
                places_.push_back(placeOfUser(*record));
        }
    }

    const PlaceSources& sources_;
    std::string_view beginning_;
    KindMask kinds_;
    std::size_t rowLimit_;
    std::vector<Place>& places_;
};

}  // namespace

bool findPlacesBeginning(const PlaceSources& sources, std::string_view beginning, KindMask kinds,
                         std::size_t rowLimit, std::vector<Place>& places) {
    return PrefixSearch(sources, beginning, kinds, rowLimit, places).run();
}

}  // namespace korvel
