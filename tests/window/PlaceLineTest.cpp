#include <gtest/gtest.h>

#include "nav/plan/PlaceMatches.h"
#include "window/sheets/PlaceLine.h"

namespace korvel { namespace {

/// How much of a part of the first row is written on.
int inkIn(QListWidget& list, double from, double to) {
    list.setFrameShape(QFrame::NoFrame);
    list.resize(400, 60);
    const QImage picture = list.grab().toImage();
    int ink = 0;
    for (int x = static_cast<int>(from * 400); x < to * 400; ++x)
        for (int y = 0; y < 48; ++y) ink += qGray(picture.pixel(x, y)) < 128;
    return ink;
}

TEST(PlaceLine, WhatIsInARowStandsInColumnsAndInItsText) {
    PlaceMatch match;
    match.ident = "KSEA";
    match.name = "A name that is far too long for the place that there is in a row of a list";
    match.kind = kAirportKind;
    match.distanceNm = 12;
    match.expired = true;
    QListWidget near;
    showPlaces(near);
    addPlaceRow(near, match, DistanceUnit::NauticalMiles, "in the plan");
    EXPECT_EQ(
        near.item(0)->text().toStdString(), "KSEA   airport   " + match.name + "   12.0 nm   EXPIRED   in the plan");
    EXPECT_GT(inkIn(near, 0, 0.15), 20) << "its identifier";
    EXPECT_GT(inkIn(near, 0.8, 1), 20) << "how far";
    bool apart = false;
    for (double x = 0.7; x < 0.9; x += 0.005) apart |= inkIn(near, x, x + 0.015) == 0;
    EXPECT_TRUE(apart) << "the name ends before the figure begins";
    EXPECT_GT(inkIn(near, 0.2, 0.6), 100) << "the name";

    QListWidget unknown;
    showPlaces(unknown);
    match.name = match.ident;
    match.distanceNm.reset();
    match.expired = false;
    addPlaceRow(unknown, match, DistanceUnit::NauticalMiles, {});
    EXPECT_EQ(unknown.item(0)->text(), "KSEA   airport");
    EXPECT_EQ(inkIn(unknown, 0.8, 1), 0);
}

}}  // namespace korvel
