#include "base/CsvFields.h"

namespace korvel {

void CsvFields::open() {
    if (++count_ > fields_.size())
        fields_.emplace_back();
    fields_[count_ - 1].clear();
}

bool CsvFields::take(std::string_view line) {
    if (inQuotes_) {
        fields_[count_ - 1] += ' ';
    } else {
        count_ = 0;
        open();
    }
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            const bool doubled = inQuotes_ && i + 1 < line.size() && line[i + 1] == '"';
            if (doubled)
                fields_[count_ - 1] += line[++i];
            else
                inQuotes_ = !inQuotes_;
        } else if (c == ',' && !inQuotes_) {
            open();
        } else {
            fields_[count_ - 1] += c;
        }
    }
    return inQuotes_;
}

}  // namespace korvel
