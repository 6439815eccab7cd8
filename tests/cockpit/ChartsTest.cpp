#include <semaphore>
#include <thread>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Charts.h"
#include "navdb/TestDatabase.h"
#include "platform/VirtualClock.h"
#include "receiver/FakePorts.h"

namespace korvel { namespace {

/// A virtual clock that can hold a thread which loads: each file asks for the date at its end.
class HoldingClock final : public Clock {
 public:
    std::int64_t tickMs() const override { return clock_.tickMs(); }
    std::int64_t unixSeconds() const override { return clock_.unixSeconds(); }
    LocalTime localNow() const override { return clock_.localNow(); }
    std::int64_t unixSecondsAt(const LocalTime& local) const override {
        if (std::this_thread::get_id() != owner_) {
            arrived_.release();
            go_.acquire();
        }
        return clock_.unixSecondsAt(local);
    }
    void awaitFile() { arrived_.acquire(); }
    void letGo() { go_.release(); }

 private:
    VirtualClock clock_{{.year = 2026, .month = 6, .day = 15}};
    std::thread::id owner_ = std::this_thread::get_id();
    mutable std::counting_semaphore<> arrived_{0}, go_{0};
};

class ChartsTest : public testing::Test {
 protected:
    ChartsTest() {
        write("old", "old.ng2", "OLD");
        write("new", "new.ng2", "NEW");
        folder_.write("new/a.UDB.TXT",
            "NAVAID_BEGIN\nID=OWN\nNAME=own\nTYPE=VOR\nPOSN.LAT=1\nPOSN.LON=1\nFREQ=110\nNAVAID_END\n");
    }
    void write(const char* folder, const char* name, std::string_view airport, std::uint32_t expiry = 20991231) {
        TestDatabase file;
        file.expiry = expiry;
        file.addAirport(airport, 47, 10);
        std::filesystem::create_directories(folder_ / folder);
        file.write(folder_ / folder, name);
    }
    std::vector<std::filesystem::path> in(const char* folder) const { return {folder_ / folder}; }
    /// Which of the places are known.
    std::string known() {
        std::string all;
        for (const char* ident : {"OLD", "NEW", "OWN", "MARK"})
            if (charts_.database().Find(ident) != nullptr) all.append(ident).append(" ");
        return all;
    }
    void mark() {
        FixRecord fix;
        fix.key = "f.MARK";
        fix.ident.assign("MARK");
        fix.position = {.lat = 0.1, .lon = 0.1};
        charts_.setMarkedFixes({fix});
    }
    /// Ticks until nothing is being loaded any more; whether other databases came into use.
    bool end() {
        bool taken = false;
        EXPECT_TRUE(eventually([&] {
            taken |= charts_.takeLoaded();
            return !charts_.loading();
        }));
        return taken;
    }

    TempFolder folder_;
    HoldingClock clock_;
    Charts charts_{clock_, folder_.path()};
};

TEST_F(ChartsTest, LoadsBesideWhatIsInUseAndSwapsItWhole) {
    charts_.load(in("old"));
    charts_.startLoading(in("new"));
    clock_.awaitFile();
    EXPECT_EQ(charts_.loading()->text, "Loading new.ng2");
    EXPECT_FALSE(charts_.takeLoaded());
    EXPECT_EQ(known(), "OLD ");
    mark();
    clock_.letGo();
    EXPECT_TRUE(end());
    EXPECT_EQ(known(), "NEW OWN MARK ");
    ASSERT_EQ(charts_.openedFiles().size(), 1U);
    EXPECT_EQ(charts_.openedFiles()[0].name, "new.ng2");
    EXPECT_EQ(charts_.userRecords().keys(), (std::vector<std::string>{"f.MARK", "v.OWN"}));
    EXPECT_TRUE(charts_.report().text().ends_with("a.UDB.TXT\r\n  Done\r\n\r\n"));
    EXPECT_FALSE(charts_.takeLoaded()) << "once only";
}

TEST_F(ChartsTest, WhatIsBrokenOffLeavesTheOldSet) {
    charts_.load(in("old"));
    charts_.startLoading(in("new"));
    clock_.awaitFile();
    charts_.breakOff();
    EXPECT_EQ(charts_.loading()->text, "Aborting");
    clock_.letGo();
    EXPECT_FALSE(end());
    EXPECT_EQ(known(), "OLD ");
    EXPECT_EQ(charts_.report().text(), "Current Korvel Load Status\r\n\r\nAborting\r\n");

    clock_.letGo();
    charts_.startLoading(in("nowhere"));
    charts_.startLoading(in("new"));
    EXPECT_TRUE(end());
    EXPECT_EQ(known(), "NEW OWN ");
}

TEST_F(ChartsTest, TellsTheAgeOfTheOldestFile) {
    EXPECT_EQ(charts_.notice(), "NO CHARTS: see Help, Load Report");
    const std::tuple<std::uint32_t, std::uint32_t, const char*> cases[] = {
        {20130502, 20130502, "CHARTS EXPIRED 2013-05-02"},
        {20130502, 20991231, "CHARTS EXPIRED 2013-05-02 a"},
        {20140102, 20130502, "CHARTS EXPIRED 2013-05-02 b, 2014-01-02 a"},
        {20260615, 20260616, ""},
        {20991231, 20260614, "CHARTS EXPIRED 2026-06-14 b"},
        {20130502, 0, "CHARTS WITHOUT A DATE"},
    };
    for (const auto& [first, second, notice] : cases) {
        write("pair", "a.ng2", "A", first);
        write("pair", "b.ng2", "B", second);
        charts_.load(in("pair"));
        EXPECT_EQ(charts_.notice(), notice) << first << ' ' << second;
    }
    charts_.load({});
    charts_.startLoading(in("new"));
    EXPECT_EQ(charts_.notice(), "") << "they are on their way";
    charts_.breakOff();
    clock_.letGo();
    end();
    EXPECT_EQ(charts_.notice(), "NO CHARTS: see Help, Load Report");
}

}}  // namespace korvel
