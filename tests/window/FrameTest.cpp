#include <algorithm>
#include <array>
#include <sstream>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointingDevice>
#include <QPushButton>
#include <QSet>
#include <QTabWidget>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/CKorvelDoc.h"
#include "cockpit/ConnectedText.h"
#include "cockpit/RecentFiles.h"
#include "config/DataFileSearch.h"
#include "geo/Geodesy.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "paint/ColorScheme.h"
#include "platform/FileIo.h"
#include "receiver/FakePorts.h"
#include "receiver/GpsFixture.h"
#include "window/CMainFrame.h"
#include "window/Hands.h"
#include "window/sheets/CAirportSheet.h"
#include "window/sheets/CPrefsSheet.h"
#include "window/sheets/ChecklistSheet.h"
#include "window/sheets/KeyPad.h"
#include "window/sheets/SimulatorSheet.h"

namespace korvel { namespace {

/// The window on a clock that stands still and a receiver that says what the test wants.
class FrameTest : public testing::Test {
 protected:
    void SetUp() override { open(); }

    void open() {
        profile_.setString(kOptionsSection, "Port", "COM3:,4800,N,8,1");
        document_ = std::make_unique<CKorvelDoc>(CKorvelDoc::Foundations{profile_, clock_, ports_.opener()});
        frame_ = std::make_unique<CMainFrame>(FrameParts{*document_, profile_, scheme_, dataFiles_, labels_});
        frame_->showWhereItWas();
        QApplication::processEvents();
    }
    void closeAndReopen() {
        frame_->close();
        frame_.reset();
        document_.reset();
        open();
    }

    CKorvelView& view() { return frame_->view(); }
    Screen& screen() { return frame_->screen(); }
    bool isPanned() { return screen().camera().lookAt().has_value(); }
    int rangeNm() { return screen().camera().viewport().currentRangeNm(); }

    void press(const QKeySequence& key) {
        for (QAction* action : frame_->findChildren<QAction*>())
            if (action->shortcuts().contains(key)) return action->trigger();
        ADD_FAILURE() << "no command has the key " << key.toString().toStdString();
    }
    /// Presses the button with this text in the dialog of that class.
    template <class Dialog>
    void clickIn(const char* text) {
        for (auto* dialog : frame_->findChildren<Dialog*>())
            for (auto* button : dialog->template findChildren<QAbstractButton*>())
                if (dialog->isVisible() && button->text().remove('&') == text) return button->click();
        ADD_FAILURE() << "no dialog with a button " << text;
    }
    void mouse(QEvent::Type type, QPointF at) {
        const bool up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(
            type, at, view().mapToGlobal(at), Qt::LeftButton, up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
    }
    void drag(QPointF from, QPointF to) {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, to);
        mouse(QEvent::MouseButtonRelease, to);
    }
    QPointF middle() { return QRectF(view().rect()).center(); }

    void flyTo(const std::string& position) {
        for (const auto& [name, rest] :
            {std::pair{"GPRMC,1,A,", ",90.5,90.00,211200,,"}, std::pair{"GPGGA,1,", ",1,04,1,9,M,,,,"}}) {
            std::ostringstream body;
            body << name << position << rest;
            ports_.send(sentence(body.str()));
            ports_.send("\r\n");
        }
        ASSERT_TRUE(eventually([&] {
            screen().tick();
            return document_->cockpitData().position.has_value();
        }));
    }

    /// Places of the pilot's own, each "KEY LAT LON NAME".
    void know(std::initializer_list<std::string_view> places) {
        std::string file;
        for (const std::string_view place : places) {
            std::istringstream words{std::string(place)};
            std::string key, lat, lon, name;
            words >> key >> lat >> lon >> name;
            const bool isAirport = key.starts_with("a.");
            file += (isAirport ? "ARPT_BEGIN\n" : "NAVAID_BEGIN\nFREQ=110\nTYPE=") +
                    std::string(isAirport               ? ""
                                : key.starts_with("v.") ? "VOR\n"
                                                        : "FIX\n") +
                    "ID=" + key.substr(2) + "\nNAME=" + name + "\nPOSN.LAT=" + lat + "\nPOSN.LON=" + lon +
                    (isAirport ? "\nARPT_END\n" : "\nNAVAID_END\n");
        }
        folder_.write("my.UDB.TXT", file);
        document_->loadDatabases(std::array{folder_.path()});
    }
    QDialog& openSheet() {
        const auto dialogs = frame_->findChildren<QDialog*>();
        return **std::ranges::find_if(dialogs, &QWidget::isVisible);
    }
    /// The sheet that a key opens.
    QDialog& sheetOf(const QKeySequence& key) {
        press(key);
        return openSheet();
    }
    static std::string lineIn(QDialog& sheet) { return sheet.findChild<QLineEdit*>()->text().toStdString(); }
    static std::string listIn(QDialog& sheet) {
        std::string rows;
        const auto* const list = sheet.findChild<QListWidget*>();
        for (int row = 0; row < list->count(); ++row) {
            const QStringList words = list->item(row)->text().split(' ', Qt::SkipEmptyParts);
            rows += (words.front() + '/' + words.back() + ' ').toStdString();
        }
        return rows;
    }
    static bool says(QDialog& sheet, const QString& words) {
        const auto labels = sheet.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](QLabel* label) { return label->text().contains(words); });
    }

    TempFolder folder_;
    VirtualClock clock_;
    std::unique_ptr<RegistryProfile> registry_ = openRegistryProfile();
    ProfileFile profile_{folder_.path(), *registry_};
    DataFileSearch dataFiles_{{folder_.path()}};
    ColorScheme scheme_{profile_, dataFiles_};
    DisplayFonts fonts_{QString()};
    LabelCache labels_{fonts_};
    FakePorts ports_;
    std::unique_ptr<CKorvelDoc> document_;
    std::unique_ptr<CMainFrame> frame_;
};

TEST_F(FrameTest, NoKeyStandsForTwoCommands) {
    std::set<QString> keys;
    for (const QAction* action : frame_->findChildren<QAction*>())
        for (const QKeySequence& key : action->shortcuts())
            EXPECT_TRUE(keys.insert(key.toString()).second) << key.toString().toStdString();
    EXPECT_GE(keys.size(), 8U);
}

TEST_F(FrameTest, TheWheelAndTwoFingersZoom) {
    flyTo("4730.0,N,01015.0,E");
    QWheelEvent notch(
        middle(), view().mapToGlobal(middle()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view(), &notch);
    EXPECT_EQ(rangeNm(), 100);

    const std::unique_ptr<QPointingDevice> glass(QTest::createTouchDevice());
    const QPoint center = middle().toPoint();
    const auto fingers = [&](int apart) { return QPoint(apart / 2, 0); };
    QTest::touchEvent(&view(), glass.get(), true).press(0, center - fingers(60)).press(1, center + fingers(60));
    for (int apart = 70; apart <= 180; apart += 10)
        QTest::touchEvent(&view(), glass.get(), true).move(0, center - fingers(apart)).move(1, center + fingers(apart));
    QTest::touchEvent(&view(), glass.get(), true).release(0, center - fingers(180)).release(1, center + fingers(180));
    EXPECT_EQ(rangeNm(), 40);  // three times as far apart: two steps
    EXPECT_FALSE(isPanned());
}

TEST_F(FrameTest, MouseKeysAndCommandsReachTheScreen) {
    bool live = false;
    screen().onLive = [&](bool isLive) { live = isLive; };
    flyTo("4730.0,N,01015.0,E");
    EXPECT_TRUE(live);
    drag(middle(), middle() + QPointF(100, 40));
    EXPECT_TRUE(isPanned());
    press(Qt::Key_Space);
    EXPECT_FALSE(isPanned());
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        keyClick(&view(), key);
        EXPECT_TRUE(isPanned()) << key;
        press(Qt::Key_Space);
    }
    keyClick(&view(), Qt::Key_Return);
    ASSERT_TRUE(screen().card().isOpen());
    for (const auto& [modifier, part] :
        {std::pair{Qt::NoModifier, CardPart::Insert}, {Qt::ShiftModifier, CardPart::Direct}}) {
        keyClick(&view(), modifier == Qt::NoModifier ? Qt::Key_Tab : Qt::Key_Backtab, modifier);
        EXPECT_EQ(screen().card().focus(), part);
    }
    keyClick(&view(), Qt::Key_Escape);
    EXPECT_FALSE(screen().card().isOpen());
    mouse(QEvent::MouseButtonPress, middle() + QPointF(60, 0));
    clock_.advanceMs(1000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return document_->flight().navigation().directLeg(); }, 2000)) << "held";
    mouse(QEvent::MouseButtonRelease, middle() + QPointF(60, 0));
    document_->flight().navigation().ClearNavigation();
    press(QKeySequence(Qt::SHIFT | Qt::Key_M));
    EXPECT_TRUE(screen().isMeasuring());
    keyClick(&view(), Qt::Key_Escape);
    EXPECT_FALSE(screen().isMeasuring());
    press(Qt::Key_Z);
    EXPECT_EQ(rangeNm(), 40);
    press(QKeySequence(Qt::SHIFT | Qt::Key_Z));
    press(Qt::Key_Minus);
    EXPECT_EQ(rangeNm(), 100);
}

TEST_F(FrameTest, RemembersPageAndPlaceAndScheme) {
    frame_->setGeometry(60, 50, 700, 480);
    press(Qt::Key_N);
    const PageId page = screen().page();
    ASSERT_NE(page, PageId::Map);
    press(Qt::Key_C);
    const ColorValue night = scheme_.Color("map.background");
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 64);
    closeAndReopen();
    EXPECT_EQ(frame_->geometry(), QRect(60, 50, 700, 480));
    EXPECT_EQ(screen().page(), page);
    EXPECT_EQ(scheme_.Color("map.background"), night);
    press(Qt::Key_C);
    QApplication::processEvents();
    EXPECT_GT(frame_->menuBar()->palette().color(QPalette::Window).lightness(), 192);
}

TEST_F(FrameTest, AtNightNothingIsBrighterThanItsText) {
    press(Qt::Key_C);
    const QPalette palette = QApplication::palette();
    const auto brightness = [&](QPalette::ColorRole role) { return palette.color(QPalette::Active, role).lightness(); };
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::Light, QPalette::Midlight,
             QPalette::Mid, QPalette::Dark, QPalette::ToolTipBase})
        EXPECT_LT(brightness(role), brightness(QPalette::Text) / 2) << role;
    press(Qt::Key_C);
}

TEST_F(FrameTest, EveryCommandIsATileForFingerAndKey) {
    frame_->resize(800, 480);
    QApplication::processEvents();
    const Rect& button = screen().areas().layout().buttons.front();
    const QPointF at(button.center().x, button.center().y);
    drag(at, at);
    QDialog& sheet = openSheet();
    QSet<QString> tiles;
    const QSet<QString> grey{"Save Flight Plan", "Save Flight Plan As", "Save Track As", "Export Plan", "Export Track",
        "Remove Flight Plan", "Activate Flight Plan", "Reverse Flight Plan", "Undo Plan Change", "Redo Plan Change",
        "Acknowledge Alarm"};
    for (const QAction* group : frame_->menuBar()->actions()) {
        clickIn<QDialog>(group->text().remove('&').toUtf8().constData());
        for (const auto* tile : sheet.findChildren<QPushButton*>()) {
            tiles.insert(tile->text());
            EXPECT_EQ(tile->isEnabled(), !grey.contains(tile->text())) << tile->text().toStdString();
        }
    }
    for (const QAction* group : frame_->menuBar()->actions())
        for (const QAction* action : group->menu()->actions())
            EXPECT_TRUE(action->isSeparator() || tiles.contains(action->text().remove('&').remove("...")))
                << action->text().toStdString();

    clickIn<QDialog>("View");
    ASSERT_EQ(rangeNm(), 65);
    keyClick(sheet.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(static_cast<QPushButton*>(sheet.focusWidget())->text(), "Declutter") << "a row further";
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Right}) keyClick(sheet.focusWidget(), key);
    EXPECT_EQ(static_cast<QPushButton*>(sheet.focusWidget())->text(), "Zoom Out");
    keyClick(sheet.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(rangeNm(), 100);

    QDialog& again = sheetOf(Qt::Key_F10);
    EXPECT_EQ(again.windowTitle(), "View") << "where the pilot was last";
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Right}) keyClick(again.focusWidget(), key);
    EXPECT_EQ(static_cast<QPushButton*>(again.focusWidget())->text(), "&Navigate");
    keyClick(again.focusWidget(), Qt::Key_Z, Qt::NoModifier, "z");
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(rangeNm(), 65) << "by its own key";
}

TEST_F(FrameTest, AGroupInAGroupIsTilesToo) {
    QDialog& sheet = sheetOf(Qt::Key_F10);
    clickIn<QDialog>("Options");
    clickIn<QDialog>("Colour Scheme");
    EXPECT_EQ(sheet.windowTitle(), "Colour Scheme");
    clickIn<QDialog>("<Glass>");
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(document_->settings().schemeFile, "<Glass>");
    press(Qt::Key_C);
    press(Qt::Key_C);
    EXPECT_EQ(document_->settings().schemeFile, "<Glass>") << "the day's scheme, from the night's back to it";
}

TEST_F(FrameTest, ColorsAreOfferedAtTheFirstStartAndInThePreferences) {
    frame_->welcome();
    clickIn<QDialog>("Glass");
    EXPECT_TRUE(openSheet().isVisible()) << "to see how it looks and try another";
    EXPECT_EQ(document_->settings().schemeFile, "<Glass>");
    EXPECT_EQ(scheme_.Color("nav.header"), Rgb(116, 220, 240));
    openSheet().reject();
    QDialog& prefs = sheetOf(Qt::CTRL | Qt::Key_P);
    const auto lists = prefs.findChildren<QComboBox*>();
    auto& list = **std::ranges::find(lists, QString("Colours"), &QWidget::accessibleName);
    EXPECT_EQ(list.currentText(), "<Glass>");
    list.setCurrentText("<Default2>");
    EXPECT_EQ(document_->settings().schemeFile, "<Glass>") << "not before it is accepted";
    prefs.accept();
    EXPECT_EQ(document_->settings().schemeFile, "<Default2>");
    EXPECT_EQ(scheme_.Color("geo.land"), Rgb(0, 192, 128));
}

TEST_F(FrameTest, TheMenuBarIsThereForWhoWantsItAndNotInFullScreen) {
    EXPECT_FALSE(frame_->menuBar()->isVisible());
    press(QKeySequence(Qt::SHIFT | Qt::Key_F10));
    EXPECT_TRUE(frame_->menuBar()->isVisible());
    press(Qt::Key_F11);
    QApplication::processEvents();
    EXPECT_FALSE(frame_->menuBar()->isVisible());
    press(Qt::Key_F11);
    QApplication::processEvents();
    EXPECT_TRUE(frame_->menuBar()->isVisible());
    closeAndReopen();
    EXPECT_TRUE(frame_->menuBar()->isVisible());
}

TEST_F(FrameTest, APlanIsChangedByRowsTakenBackAndNotLost) {
    const auto file = folder_.path() / "trip.fp";
    ASSERT_TRUE(writeFileAtomically(file, "f.AAA 47.5 10.0\r\nf.BBB@45 47.6 10.5\r\nf.CCC 47.7 11.0\r\n"));
    ASSERT_EQ(frame_->openFile(file), "");
    press(Qt::Key_F);
    ASSERT_EQ(screen().page(), PageId::FlightPlan);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) keyClick(&view(), key);
    ActivePlan& plan = document_->flight().plan();
    EXPECT_FALSE(plan.changed());
    clickIn<QDialog>("Remove");
    ASSERT_EQ(plan.entries().size(), 2U);
    EXPECT_EQ(plan.entries()[1].key, "f.CCC");
    press(QKeySequence(Qt::CTRL | Qt::Key_Z));
    ASSERT_EQ(plan.entries().size(), 3U);
    EXPECT_EQ(plan.entries()[1].altitudeFt, 4500);
    EXPECT_FALSE(plan.changed()) << "as the file has it";
    press(QKeySequence(Qt::CTRL | Qt::Key_Y));
    frame_->close();
    EXPECT_TRUE(frame_->isVisible()) << "the plan has changed";
    clickIn<QMessageBox>("Save");
    EXPECT_FALSE(frame_->isVisible());
    EXPECT_EQ(*readWholeFile(file), "f.AAA 47.500000 10.000000\r\nf.CCC 47.700000 11.000000\r\n");
}

TEST_F(FrameTest, ATrackIsOpenedLikeAPlan) {
    EXPECT_EQ(frame_->openFile(folder_.write("a.trk", "20260501,100000,52.38,9.69,95,270,2500\r\n")), "");
    EXPECT_EQ(document_->flight().track().track()->read()->slots.size(), 1U);
    EXPECT_EQ(frame_->openFile(folder_.write("b.trk", "")), "There are no track points in it.");
}

TEST_F(FrameTest, ARecordedTrackIsAskedForOnceTheOtherOneIsRead) {
    TrackRecorder& recorder = document_->flight().track();
    recorder.offer({0.8, 0.2}, 1, 2, 3);
    const auto recorded = recorder.track();
    const auto boxes = [this] {
        QApplication::processEvents();
        return std::ranges::count_if(frame_->findChildren<QMessageBox*>(), &QWidget::isVisible);
    };
    frame_->openFileOrTell(folder_.write("bad.trk", "x\r\n"));
    ASSERT_TRUE(eventually([&] { return boxes() == 1; }));
    clickIn<QMessageBox>("OK");
    EXPECT_EQ(recorder.track(), recorded);
    const auto file = folder_.write("a\xFF.trk", "20260101,000000,1,2,3,4,5\r\n20260101,000005,1,2,3,4,5\r\n");
    frame_->openFileOrTell(file);
    ASSERT_TRUE(eventually([&] { return boxes() == 1; }));
    clickIn<QMessageBox>("Cancel");
    EXPECT_EQ(recorder.track(), recorded);
    frame_->openFileOrTell(file);
    ASSERT_TRUE(eventually([&] { return boxes() == 1; }));
    clickIn<QMessageBox>("Discard");
    ASSERT_NE(recorder.track(), recorded);
    EXPECT_EQ(recorder.track()->read()->slots.size(), 2U);
    EXPECT_EQ(RecentFiles(profile_).files().front(), file) << "whatever its name";
}

TEST_F(FrameTest, ADirectToIsClearedAndThePlanGoesOnUntilItIsRemoved) {
    ASSERT_EQ(frame_->openFile(folder_.write("trip.fp", "f.AAA 47.5 10.0\r\nf.BBB 47.6 10.5\r\n")), "");
    flyTo("4730.0,N,01000.0,E");
    Flight& flight = document_->flight();
    const auto active = [&] { return flight.navigation().state().activeKey; };
    ASSERT_EQ(active(), "f.BBB");
    press(QKeySequence(Qt::CTRL | Qt::Key_D));
    EXPECT_EQ(active(), "f.BBB") << "there is no direct-to to end";
    flight.navigation().GoToWithCourse({0.8, 0.2}, 90, "X");
    press(QKeySequence(Qt::CTRL | Qt::Key_D));
    EXPECT_FALSE(flight.navigation().directLeg());
    EXPECT_EQ(active(), "f.BBB");
    for (const QKeySequence& remove :
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D), QKeySequence(Qt::CTRL | Qt::Key_N)}) {
        press(remove);
        EXPECT_FALSE(flight.plan().hasPlan()) << "without a question";
        EXPECT_EQ(active(), "");
        press(QKeySequence(Qt::CTRL | Qt::Key_Z));
        EXPECT_EQ(active(), "f.BBB");
        EXPECT_EQ(flight.plan().file(), folder_ / "trip.fp");
    }
}

TEST_F(FrameTest, WhatCannotBeSavedIsToldBeforeTheEnd) {
    std::filesystem::remove(profile_.path());
    std::filesystem::create_directory(profile_.path());
    frame_->close();
    EXPECT_TRUE(frame_->isVisible());
    const auto boxes = frame_->findChildren<QMessageBox*>();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_FALSE(boxes.front()->geometry().contains(frame_->geometry().center())) << "the aircraft shows";
    EXPECT_TRUE(frame_->geometry().contains(boxes.front()->geometry()));
    EXPECT_TRUE(boxes.front()->text().startsWith("Settings not saved: korvel.ini cannot be written\n"));
    EXPECT_TRUE(connectedText(*document_, {}).starts_with("NOT SAVED\nSettings not saved: korvel.ini"));
    boxes.front()->accept();
    frame_->close();
    EXPECT_FALSE(frame_->isVisible());
}

TEST_F(FrameTest, WithoutADatabaseTheReportSaysHowToBuildOne) {
    press(QKeySequence(Qt::SHIFT | Qt::Key_F2));
    const auto words = frame_->findChildren<QPlainTextEdit*>();
    ASSERT_EQ(words.size(), 1);
    EXPECT_TRUE(words.front()->toPlainText().contains("korvelctl navdb build --from"));
}

TEST_F(FrameTest, AFingerCanTypeWhereThereIsNoKeyboard) {
    frame_->resize(800, 480);
    press(Qt::Key_D);
    const auto dialogs = frame_->findChildren<QDialog*>();
    QDialog* const sheet = *std::ranges::find_if(dialogs, &QWidget::isVisible);
    for (const char* label : {"Keys", "K", "4", "Del", "S"}) clickIn<QDialog>(label);
    auto* const line = qobject_cast<QLineEdit*>(sheet->focusWidget());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), "KS");
    EXPECT_EQ(sheet->geometry().bottom(), frame_->geometry().bottom()) << "nothing is below the screen's edge";
    const Rect& status = screen().areas().layout().status;
    EXPECT_GE(sheet->y(), view().mapToGlobal(QPoint(0, static_cast<int>(status.bottom()))).y())
        << "what is marked shows";
    keyClicks(line, "e");
    EXPECT_EQ(line->text(), "KSe");
    EXPECT_FALSE(sheet->findChild<KeyPad*>()->isVisible()) << "there is a keyboard after all";
    sheet->reject();
}

TEST_F(FrameTest, WhatIsRefusedIsSaidWhereItWasTyped) {
    struct Case {
        QKeySequence key;
        QString said;
    };
    const std::array cases = {Case{Qt::Key_D, "Not found!"}, Case{Qt::CTRL | Qt::Key_F, "Not found!"},
        Case{Qt::SHIFT | Qt::Key_A, "The receiver gives no altitude: that takes a fix in three dimensions"},
        Case{Qt::SHIFT | Qt::Key_F, "XXXXX navaid/airway not found or data expired!"}};
    for (const Case& refused : cases) {
        press(refused.key);
        const auto dialogs = frame_->findChildren<QDialog*>();
        const auto shown = std::ranges::find_if(dialogs, &QWidget::isVisible);
        ASSERT_NE(shown, dialogs.end());
        QDialog* sheet = *shown;
        keyClicks(sheet->focusWidget(), "XXXXX");
        sheet->accept();
        EXPECT_TRUE(sheet->isVisible());
        const auto labels = sheet->findChildren<QLabel*>();
        EXPECT_TRUE(std::ranges::any_of(labels, [&](QLabel* label) { return label->text() == refused.said; }))
            << refused.said.toStdString();
        sheet->reject();
    }
    EXPECT_TRUE(document_->flight().plan().entries().empty());
}

TEST_F(FrameTest, AFarNamesakeIsAskedAboutBeforeItIsFlownTo) {
    know({"a.KSEA 47.45 -122.3 SEATTLE", "v.KSE 43 144 KUSHIRO", "v.SEA 47.44 -122.31 SEATTLE"});
    flyTo("4727.0,N,12224.0,W");
    QDialog& sheet = sheetOf(Qt::Key_D);
    EXPECT_EQ(listIn(sheet), "");
    keyClicks(sheet.focusWidget(), "kse");
    EXPECT_EQ(listIn(sheet), "KSEA/nm KSE/nm ") << "the nearest first";
    EXPECT_EQ(sheet.findChild<QListWidget*>()->currentRow(), -1);
    sheet.accept();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_TRUE(says(sheet, "KSE is KUSHIRO, ")) << "asks first";
    EXPECT_FALSE(document_->flight().navigation().directLeg());
    sheet.accept();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(document_->flight().navigation().state().activeKey, "v.KSE");

    QDialog& near = sheetOf(Qt::Key_D);
    EXPECT_EQ(listIn(near), "KSE/recent ");
    keyClicks(near.focusWidget(), "SEA");
    EXPECT_EQ(near.findChild<QListWidget*>()->currentRow(), 0) << "spelled just so, and near";
    near.accept();
    EXPECT_EQ(document_->flight().navigation().state().activeKey, "v.SEA");
    QDialog& byName = sheetOf(Qt::Key_D);
    keyClicks(byName.focusWidget(), "seatt");
    EXPECT_EQ(listIn(byName), "SEA/nm KSEA/nm ");
    byName.reject();
    closeAndReopen();
    know({"a.KSEA 47.45 -122.3 SEATTLE", "v.KSE 43 144 KUSHIRO"});
    document_->knownPlaces().setFavourite(*document_->charts().database().Find("a.KSEA"), true);
    ASSERT_EQ(document_->flight().plan().enterRoute("KSEA KSE"), "");
    EXPECT_EQ(listIn(sheetOf(Qt::CTRL | Qt::Key_F)), "KSE/recent KSEA/favourite ") << "kept, each place once";
}

TEST_F(FrameTest, TheRouteLineStaysAsTypedAndMarksTheWrongWord) {
    know({"f.AAA 47 10 A", "f.BBB 47 11 B"});
    ActivePlan& plan = document_->flight().plan();
    QDialog& sheet = sheetOf(Qt::SHIFT | Qt::Key_F);
    EXPECT_TRUE(says(sheet, "separated by SPACE key.")) << "how a route is written";
    keyClicks(sheet.focusWidget(), "aaa  f.bbb@20");
    sheet.accept();
    ASSERT_EQ(plan.entries().size(), 2U);
    QDialog& again = sheetOf(Qt::SHIFT | Qt::Key_F);
    EXPECT_EQ(lineIn(again), "AAA  f.BBB@20 ");
    auto* const line = again.findChild<QLineEdit*>();
    EXPECT_FALSE(line->hasSelectedText()) << "a letter would wipe it out";
    keyClicks(line, "GONE AAA");
    again.accept();
    EXPECT_EQ(line->selectedText(), "GONE");
    EXPECT_TRUE(says(again, "The plan in force stays as it is."));
    EXPECT_EQ(plan.entries().size(), 2U);
    again.reject();
    ASSERT_TRUE(plan.reverse());
    ASSERT_TRUE(plan.undo());
    EXPECT_EQ(plan.routeLine(), "AAA  f.BBB@20");
}

TEST_F(FrameTest, AFirstWordOfSeveralPlacesIsAskedAbout) {
    know({"v.OLM -1 -80 ECUADOR", "f.OLM 47 -123 OLYMPIA", "a.KPDX 45.6 -122.6 PORTLAND"});
    QDialog& sheet = sheetOf(Qt::SHIFT | Qt::Key_F);
    keyClicks(sheet.focusWidget(), "OLM KPDX");
    EXPECT_TRUE(says(sheet, "OLM is the name of 2 places"));
    sheet.accept();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_FALSE(document_->flight().plan().hasPlan());
    auto* const list = sheet.findChild<QListWidget*>();
    ASSERT_EQ(list->count(), 2);
    list->setCurrentRow(0);
    sheet.accept();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(document_->flight().plan().entries().at(0).record->key, "f.OLM") << "the nearer to where it goes";
}

TEST_F(FrameTest, APointIsFlownToOnACourse) {
    know({"a.KSEA 47.45 -122.3 SEATTLE"});
    for (const char* typed : {"47.45 -122.3", "ksea"}) {
        QDialog& sheet = sheetOf(Qt::SHIFT | Qt::Key_D);
        keyClicks(sheet.focusWidget(), typed);
        sheet.accept();
        EXPECT_TRUE(says(sheet, "Invalid OBS!")) << typed;
        keyClicks(sheet.focusWidget(), "090");
        sheet.accept();
        EXPECT_FALSE(sheet.isVisible());
        EXPECT_NEAR(document_->flight().navigation().state().activeWaypoint.lat * kRadToDeg, 47.45, 1e-6);
        document_->flight().navigation().ClearNavigation();
    }
}

TEST_F(FrameTest, TheSimulatorAsksBeforeItHidesAFix) {
    const Simulator& simulator = document_->flight().simulator();
    const QKeySequence simulate(Qt::SHIFT | Qt::Key_S);
    press(simulate);
    EXPECT_TRUE(simulator.running()) << "there is nothing to hide";
    press(simulate);
    EXPECT_FALSE(simulator.running());
    flyTo("4730.0,N,01015.0,E");
    press(simulate);
    EXPECT_FALSE(simulator.running());
    clickIn<QDialog>("Cancel");
    EXPECT_FALSE(simulator.running());
    press(simulate);
    clickIn<QDialog>("Start");
    EXPECT_TRUE(simulator.running());
    press(simulate);
    screen().tick();
    press(Qt::Key_S);
    clickIn<QDialog>("Start");
    EXPECT_FALSE(simulator.running());
    clickIn<QDialog>("Start all the same");
    EXPECT_TRUE(simulator.running());
}

TEST_F(FrameTest, APlacesSheetFollowsTheAircraft) {
    flyTo("4730.0,N,01015.0,E");
    auto fix = std::make_shared<FixRecord>();
    fix->ident.assign("XX");
    fix->position = {47.6 * kDegToRad, 10.25 * kDegToRad};
    PlaceSheet sheet(frame_.get(), *document_, fix, [&] { return placeText(*document_, *fix); });
    const auto tells = [&](const char* words) {
        return std::ranges::any_of(
            sheet.findChildren<QLabel*>(), [&](QLabel* label) { return label->text().contains(words); });
    };
    EXPECT_TRUE(tells("\n6 nm   "));
    flyTo("4733.0,N,01015.0,E");
    EXPECT_TRUE(eventually([&] {
        screen().tick();
        QApplication::processEvents();
        return tells("\n3 nm   ");
    }));
}

TEST_F(FrameTest, AnAirportsSheetSaysWhatItsRecordHas) {
    auto airport = std::make_shared<AirportRecord>();
    airport->key = "a.EDXX";
    airport->ident.assign("EDXX");
    airport->SetName("Old Field");
    airport->pastDate = true;
    airport->elevationFt = 1487;
    airport->magVariationDeg = -3;
    airport->comms = {{"TWR", 118.1}};
    RunwayEnd low, high;
    low.id = "08";
    high.id = "26";
    high.pattern = 'R';
    RunwayRecord runway;
    runway.lengthFt = 4000;
    runway.widthFt = 98;
    runway.surface = "ASPH";
    runway.ends = {low, high};
    airport->runways = {runway};
    const std::string words = airportText(*document_, *airport);
    for (const char* part : {"EDXX   Old Field   EXPIRED", "1487 ft", "3 W", "TWR   118.100",
             "08/26   4000 x 98 ft   ASPH", "right pattern 26"})
        EXPECT_NE(words.find(part), std::string::npos) << part << " in " << words;
    MapColorCache colors(scheme_);
    CAirportSheet sheet(frame_.get(), *document_, {labels_, colors}, airport);
    EXPECT_LE(sheet.minimumSizeHint().height(), 460);
    EXPECT_LE(sheet.minimumSizeHint().width(), 640);
}

TEST_F(FrameTest, ASettingIsFoundByItsNameItsChoicesOrItsPage) {
    CPrefsSheet sheet(frame_.get(), *document_);
    sheet.show();
    auto* line = sheet.findChild<QLineEdit*>();
    auto* tabs = sheet.findChild<QTabWidget*>();
    const auto shown = [&](const char* typed) {
        line->setText(typed);
        QStringList names;
        for (const QWidget* each : tabs->findChildren<QWidget*>())
            if (each->minimumHeight() == Sheet::kRowPixels && !each->isHidden() && !each->accessibleName().isEmpty())
                names += each->accessibleName();
        int pages = 0;
        for (int tab = 0; tab < tabs->count(); ++tab) pages += tabs->isTabVisible(tab) ? 1 : 0;
        return std::pair(names.size(), pages);
    };
    const auto all = shown("");
    EXPECT_EQ(all.second, 8);
    EXPECT_GT(all.first, 30);
    EXPECT_EQ(shown("gear warn"), (std::pair<qsizetype, int>(1, 1)));
    EXPECT_EQ(shown("MILES PER"), (std::pair<qsizetype, int>(1, 1))) << "a choice";
    EXPECT_EQ(shown("no setting"), (std::pair<qsizetype, int>(0, 0)));
    EXPECT_EQ(shown(""), all);
}

TEST_F(FrameTest, AChecklistGoesOnFromRowToRow) {
    folder_.write("checklists/mine.txt", "[Start]\nSeats: locked\nDoors: closed\n");
    Checklists lists;
    lists.load(std::array{folder_.path()});
    ChecklistSheet sheet(frame_.get(), lists, "");
    sheet.show();
    auto* rows = sheet.findChild<QListWidget*>();
    EXPECT_EQ(rows->currentRow(), 1) << "behind the heading";
    keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(lists.isChecked(0, 1));
    EXPECT_EQ(rows->currentRow(), 2);
    keyClick(rows, Qt::Key_Return);
    EXPECT_TRUE(says(sheet, "All done"));
    keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(says(sheet, "1 of 2 to do")) << "by mistake";
    for (auto* button : sheet.findChildren<QAbstractButton*>())
        if (button->text() == "Begin anew") button->click();
    EXPECT_FALSE(lists.isChecked(0, 1));
}

TEST_F(FrameTest, TheSimulatorStartsAtThePlaceThatIsTyped) {
    know({"f.AHEAD 48 10 X", "f.PLAN 47 10 X"});
    ASSERT_EQ(document_->flight().plan().enterRoute("PLAN"), "");
    const Simulator& simulator = document_->flight().simulator();
    SimulatorSheet sheet(frame_.get(), *document_);
    sheet.show();
    auto* place = sheet.findChild<QLineEdit*>();
    const auto start = [&](const char* typed) {
        place->setText(typed);
        for (auto* button : sheet.findChildren<QAbstractButton*>())
            if (button->text() == "Start") button->click();
    };
    start("NOWHERE");
    EXPECT_FALSE(simulator.running()) << "not where nobody wanted it";
    place->setText("AHEAD");
    Q_EMIT place->editingFinished();
    for (auto* button : sheet.findChildren<QAbstractButton*>())
        if (button->text() == "Plan's start") button->click();
    EXPECT_EQ(lineIn(sheet), "");
    start("ahead");
    ASSERT_TRUE(simulator.running()) << "once more";
    EXPECT_NEAR(simulator.position().lat * kRadToDeg, 48, 1e-4);
    EXPECT_TRUE(simulator.followsPlan());
}

}}  // namespace korvel
