#include "navdb/records/NavaidRecord.h"

#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr int kFrequencyDecimals = 4;

std::string withoutTrailingZeros(std::string text, std::size_t decimalsKept) {
    const std::size_t shortest = text.find('.') + 1 + decimalsKept;
    while (text.size() > shortest && text.back() == '0')
        text.pop_back();
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string frequencyText(float frequency, std::size_t decimalsKept) {
    if (frequency == 0.0F)
        return {};
    return withoutTrailingZeros(formatFixed(static_cast<double>(frequency), kFrequencyDecimals),
                                decimalsKept);
}

}  // namespace

std::unique_ptr<DatabaseRecord> VorRecord::Clone() const {
    return std::make_unique<VorRecord>(*this);
}

std::string VorRecord::GetInfoText() const { return frequencyText(frequency, 1); }

std::unique_ptr<DatabaseRecord> NdbRecord::Clone() const {
    return std::make_unique<NdbRecord>(*this);
}

std::string NdbRecord::GetInfoText() const { return frequencyText(frequency, 0); }

}  // namespace korvel
