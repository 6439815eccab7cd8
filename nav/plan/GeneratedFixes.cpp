#include "nav/plan/GeneratedFixes.h"

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"

namespace korvel {

GeneratedFixes::Fix GeneratedFixes::find(std::string_view key) const {
    const auto found = fixes_.find(key);
    return found != fixes_.end() ? found->second : nullptr;
}

GeneratedFixes::Fix GeneratedFixes::FindOrCreateFix(GeoPoint position,
                                                    std::optional<std::string_view> name,
                                                    std::string_view shown) {
    for (const auto& [key, fix] : fixes_)
        if (SamePoint(fix->position, position))
            return fix;
    std::string ident(name.value_or(""));
    while (!name && (ident.empty() || find(makeRecordKey(kFixKind, ident))))
        ident = "F-" + formatInt(++counter_);
    const auto fix = std::make_shared<FixRecord>();
    fix->key = makeRecordKey(kFixKind, ident);
    fix->ident.assign(ident);
    fix->SetName(shown.empty() ? std::string_view(ident) : shown);
    fix->position = position;
    fixes_[fix->key] = fix;
    return fix;
}

}  // namespace korvel
