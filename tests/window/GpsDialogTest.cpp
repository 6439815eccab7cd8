#include <gtest/gtest.h>

#include "window/sheets/CGPSDialog.h"

namespace korvel { namespace {

TEST(CGPSDialog, GivesBackWhatItWasGivenUnlessThePilotChanges) {
    for (const std::string settings : {"", "COM1:,4800,N,8,1", "COM77:,38400,N,8,1", "/dev/ttyACM0:,14400,N,8,1"})
        EXPECT_EQ(CGPSDialog(nullptr, settings, {}).settings(), settings);
    // What cannot be read is no port: search.
    for (const std::string settings : {"COM1", ":,9600,N,8,1", "COM1:,fast,N,8,1", "COM1:,0"})
        EXPECT_EQ(CGPSDialog(nullptr, settings, {}).settings(), "");
    for (const bool allTalkers : {true, false})
        EXPECT_EQ(CGPSDialog(nullptr, "", {.allTalkers = allTalkers}).receiver().allTalkers, allTalkers);
    const CGPSDialog network(nullptr, "COM1:,4800,N,8,1", {.source = "udp://:10110"});
    EXPECT_EQ(network.receiver().source, "udp://:10110");
    EXPECT_EQ(network.settings(), "COM1:,4800,N,8,1") << "stays for when the network is left";
}

TEST(CGPSDialog, ScrollsInASmallWindowInPlaceOfSqueezingItsRows) {
    QWidget window;
    window.resize(640, 400);
    window.show();
    CGPSDialog sheet(&window, "COM1:,4800,N,8,1", {});
    sheet.keepBelow([] { return 56; });
    sheet.status = [] { return std::string("COM4 9600\nInvalid Port\n0 bytes, no sentence"); };
    sheet.show();
    EXPECT_EQ(sheet.height(), 344);
    int rows = 0;
    for (const QWidget* row : sheet.findChildren<QWidget*>()) {
        if (row->isVisible() && (row->inherits("QLabel") || row->inherits("QAbstractButton"))) {
            EXPECT_GE(row->height(), row->minimumSizeHint().height()) << row->metaObject()->className();
            ++rows;
        }
    }
    EXPECT_GE(rows, 9) << "with the title";
}

}}  // namespace korvel
