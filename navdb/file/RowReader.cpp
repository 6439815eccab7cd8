#include "navdb/file/RowReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "navdb/file/LittleEndian.h"

namespace korvel {
namespace {

constexpr std::uint32_t kRowsNotRemembered = 256;  // about a block of them
constexpr std::size_t kMostRemembered = 4096;

/// What one unit of a stored integer is worth.
double unitOf(FieldType type) {
    switch (type) {
        case FieldType::Degrees:
            return kDegreesUnit;
        case FieldType::TenThousandths:
            return kTenThousandthsUnit;
        case FieldType::Fixed16:
            return kFixed16Unit;
        default:
            return 1.0;
    }
}

template <class Content>
Content& reuse(FieldValue& value, FieldType type) {
    value.type = type;
    if (auto* content = std::get_if<Content>(&value.content))
        return *content;
    return value.content.emplace<Content>();
}

}  // namespace

bool RowReader::ready() {
    if (!cache_) {
        auto file = disk_ != nullptr ? disk_->openRandomAccess(path_) : nullptr;
        if (!file)
            return false;
        cache_ = std::make_unique<BlockCache>(std::move(file));
    }
    return true;
}

bool RowReader::load(const TableEntry& table, std::uint64_t position) {
    row_.resize(table.rowSize);
    table_ = ready() && cache_->read(position, row_) ? &table : nullptr;
    return table_ != nullptr;
}

std::optional<std::int32_t> RowReader::word(const FieldEntry* field) const {
    if (field == nullptr || field->type == FieldType::Bytes)
        return std::nullopt;
    return loadI32(row_, field->offset);
}

std::optional<double> RowReader::number(const FieldEntry* field) const {
    const auto value = word(field);
    return value ? std::optional(*value * unitOf(field->type)) : std::nullopt;
}

void RowReader::readText(std::uint32_t offset, std::string& text) {
    if (offset == 0)
        text.clear();
    else
        cache_->readText(std::uint64_t{stringArea_} + offset, text);
}

void RowReader::text(const FieldEntry* field, std::string& text) {
    text.clear();
    if (field == nullptr)
        return;
    if (field->type == FieldType::Bytes) {
        const auto bytes = std::span(row_).subspan(field->offset, field->length);
        text.assign(bytes.begin(), std::find(bytes.begin(), bytes.end(), std::uint8_t{0}));
    } else if (field->type == FieldType::Text || field->type == FieldType::MarkedText) {
        readText(loadU32(row_, field->offset), text);
    }
}

void RowReader::textOf(std::int32_t word, std::string& text) {
    text.clear();
    if (ready())
        readText(static_cast<std::uint32_t>(word), text);
}

void RowReader::fill(const FieldEntry& field, std::span<const std::uint8_t> bytes,
                     FieldValue& value) {
    switch (field.type) {
        case FieldType::Bytes:
            reuse<std::vector<std::uint8_t>>(value, field.type).assign(bytes.begin(), bytes.end());
            break;
        case FieldType::Text:
            readText(loadU32(bytes, 0), reuse<std::string>(value, field.type));
            break;
        case FieldType::Degrees:
        case FieldType::TenThousandths:
        case FieldType::Fixed16:
            reuse<double>(value, field.type) = loadI32(bytes, 0) * unitOf(field.type);
            break;
        case FieldType::MarkedText: {
            auto& marked = reuse<MarkedText>(value, field.type);
            marked.word = loadU32(bytes, 0);
            readText(marked.word, marked.text);
            break;
        }
        case FieldType::Integer:
        default:
            reuse<std::int32_t>(value, FieldType::Integer) = loadI32(bytes, 0);
            break;
    }
}

void RowReader::decode(FieldMap& fields) {
    for (const FieldEntry& field : table_->fields) {
        fill(field, std::span(row_).subspan(field.offset, field.width()),
             fields[unpackName(field.name)]);
    }
}

std::optional<FieldValue> RowReader::readNamedField(std::string_view name) {
    const PackedName wanted = packName(name);
    std::uint64_t offset = 0;
    for (const FieldEntry& field : table_->fields) {
        if (field.name == wanted) {
            if (offset + field.width() > row_.size())
                return std::nullopt;
            FieldValue value;
            fill(field, std::span(row_).subspan(offset, field.width()), value);
            return value;
        }
        offset += field.type == FieldType::Text ? field.length : 4;
    }
    return std::nullopt;
}

std::optional<std::int32_t> RowReader::wordAt(std::uint64_t position) {
    std::uint32_t value = 0;
    if (!ready() || !cache_->readWord(position, value))
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> RowReader::peek(const IndexEntry& index, std::uint32_t row,
                                            const FieldEntry& field) {
    return wordAt(std::uint64_t{index.rowPosition(row)} + field.offset);
}

int RowReader::compare(const IndexEntry& index, std::uint32_t row, const FieldEntry& field,
                       std::string_view key) {
    if (field.type == FieldType::Bytes) {
        std::string block;
        if (load(index, row))
            text(&field, block);
        return std::string_view(block).compare(key);
    }
    const auto offset = static_cast<std::uint32_t>(peek(index, row, field).value_or(0));
    if (offset == 0)
        return key.empty() ? 0 : -1;
    return ready() ? cache_->compareText(std::uint64_t{stringArea_} + offset, key) : -1;
}

int RowReader::compareRemembered(const IndexEntry& index, std::uint32_t row,
                                 const FieldEntry& field, std::string_view key) {
    const std::uint32_t position = index.rowPosition(row);
    if (const auto turn = turns_.find(position); turn != turns_.end())
        return turn->second.view().compare(key);
    if (turns_.size() < kMostRemembered && load(index, row)) {
        text(&field, scratch_);
        if (scratch_.size() <= kMaxIdentLength)
            return turns_.emplace(position, scratch_).first->second.view().compare(key);
    }
    return compare(index, row, field, key);
}

std::uint32_t RowReader::firstNotBelow(const IndexEntry& index, const FieldEntry& field,
                                       std::string_view key) {
    std::uint32_t low = 0;
    std::uint32_t high = index.rowCount();
    while (low < high) {
        const std::uint32_t middle = low + (high - low) / 2;
        const int order = high - low > kRowsNotRemembered
                              ? compareRemembered(index, middle, field, key)
                              : compare(index, middle, field, key);
        if (order < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

bool RowReader::equals(const IndexEntry& index, std::uint32_t row, const FieldEntry& field,
                       std::string_view key) {
    return row < index.rowCount() && compare(index, row, field, key) == 0;
}

const FieldEntry* orderingField(const IndexEntry& index) {
    static constexpr std::array kById{packName("AptKey"), packName("Ap2Key"), packName("NavKey"),
                                      packName("WptKey"), packName("Airway"), packName("NamKey"),
                                      packName("TwnKey")};
    static constexpr std::array kByAirport{packName("RwyKey"), packName("Rw2Key"),
                                           packName("ComKey")};
    if (std::find(kById.begin(), kById.end(), index.name) != kById.end())
        return index.table->field(packName("ID"));
    if (std::find(kByAirport.begin(), kByAirport.end(), index.name) != kByAirport.end())
        return index.table->field(packName("ARPT_ID"));
    return nullptr;
}

}  // namespace korvel
