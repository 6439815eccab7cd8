#include <gtest/gtest.h>

#include "nav/track/LogBook.h"

namespace korvel { namespace {

TEST(LogBook, ReadsWhatTheLogHoldsAndLeavesOutWhatIsDamaged) {
    const LogBook book = LogBook::read(
        "20260501,10:02,EDVV,11:14,EDDH,72,1.2\r\n20260502,,,09:40,EDDH,31,0.6\r\n"
        "20260502,12:00,,12:10,EDDH,1\r\n20261301,1,A,2,B,3,0.1\r\n20260502,10:00,A,10:10,B,-3,0.1\r\n"
        "20260502,10:00,A,10:10,B,99999999999,0.1\r\n20260731,18:00,EDDH,18:05,EDDH,5,0.1");
    ASSERT_EQ(book.flights.size(), 3U);
    EXPECT_EQ(book.unreadable, 4U);
    EXPECT_EQ(book.flights[0].off, "18:00") << "the newest first";
    EXPECT_EQ(book.flights[1].from, "") << "seen under way";
    EXPECT_EQ(book.flights[2].to, "EDDH");
    EXPECT_EQ(book.all().minutes, 108);
    EXPECT_EQ(book.lastDays(91, {.year = 2026, .month = 7, .day = 31, .hour = 23}).flights, 2) << "not that of May 1";
    EXPECT_EQ(book.lastDays(92, {.year = 2026, .month = 7, .day = 31}).flights, 3);
    EXPECT_EQ(book.lastDays(90, {.year = 2026, .month = 7, .day = 30}).flights, 1) << "nothing of tomorrow";
}

}}  // namespace korvel
