#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "cockpit/PrefsTable.h"

namespace korvel { namespace {

TEST(PrefsTableTest, AsksForEverySettingOnce) {
    // These have a place of their own.
    std::set<std::string_view> asked = {"Port", "SchemeFile", "SimLat", "SimLon"};
    std::set<std::tuple<std::string_view, unsigned>> rows;
    for (const PrefRow& row : prefRows()) {
        asked.insert(row.key);
        EXPECT_TRUE(rows.insert({row.key, row.shift}).second) << row.key << ' ' << row.shift;
        EXPECT_NE(text(row.label), "") << row.key;
    }
    for (const SettingInfo& setting : settingsTable()) EXPECT_EQ(asked.count(setting.key), 1) << setting.key;
    EXPECT_EQ(asked.size(), settingsTable().size());
}

TEST(PrefsTableTest, ChangesItsOwnBitsAlone) {
    for (const PrefRow& row : prefRows()) {
        const Settings before;
        SettingValue changed = row.valueIn(before);
        if (int* number = std::get_if<int>(&changed))
            *number = *number == 0 ? 1 : 0;
        else
            changed = std::string("K");
        Settings after = before;
        row.store(changed, after);
        for (const PrefRow& other : prefRows())
            EXPECT_EQ(other.valueIn(after), &other == &row ? changed : other.valueIn(before))
                << text(row.label) << " / " << text(other.label);
        row.store(row.valueIn(before), after);
        EXPECT_EQ(after, before) << text(row.label);
    }
}

TEST(PrefsTableTest, RefusesNumbersThatWillNotDo) {
    const auto row = std::ranges::find(prefRows(), "Approach", &PrefRow::key);
    for (const auto* typed : {"", "fast", "75x", "7.5", "0", "501", "99999999999"}) {
        SettingValue value = 75;
        EXPECT_NE(row->read(typed, value), "") << typed;
        EXPECT_EQ(value, SettingValue(75));
    }
    SettingValue value = 75;
    EXPECT_EQ(row->read(" 60 ", value), "");
    EXPECT_EQ(value, SettingValue(60));
}

}}  // namespace korvel
