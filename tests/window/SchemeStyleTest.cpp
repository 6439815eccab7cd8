#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include "config/DataFileSearch.h"
#include "paint/ColorScheme.h"
#include "window/SchemeStyle.h"
#include "window/TouchStyle.h"
#include "window/sheets/QuestionSheet.h"

namespace korvel { namespace {

ColorScheme schemeOf(const std::string& name) {
    ColorScheme scheme;
    scheme.load(name, DataFileSearch({}));
    return scheme;
}

QColor inScheme(const ColorScheme& scheme, const char* key) {
    const ColorValue color = scheme.Color(key);
    return {static_cast<int>(RedOf(color)), static_cast<int>(GreenOf(color)), static_cast<int>(BlueOf(color))};
}

/// What the style says of a selector's property.
QColor styled(const ColorScheme& scheme, const char* selector, const char* property) {
    const QRegularExpression rule(
        QStringLiteral("^%1 \\{[^}]*?(?<!-)%2: (#[0-9a-f]{6});").arg(QLatin1String(selector), QLatin1String(property)),
        QRegularExpression::MultilineOption);
    return {rule.match(schemeStyleSheet(scheme)).captured(1)};
}

double contrast(const QColor& one, const QColor& other) {
    const auto light = [](const QColor& color) {
        return 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
    };
    return std::abs(light(one) - light(other));
}

TEST(SchemeStyle, IsMadeOfTheSchemesColors) {
    for (const auto& [name, chosenKey] : {std::pair{"", "nav.background"}, {"<Default2>", "nav.background"},
             {"<Night-Flight>", "nav.background"}, {"<Glass>", "map.info.background"}}) {
        SCOPED_TRACE(name);
        const ColorScheme scheme = schemeOf(name);
        EXPECT_FALSE(schemeStyleSheet(scheme).contains('@')) << "a colour without a value";
        const QColor window = styled(scheme, "QDialog, QMessageBox", "background");
        EXPECT_LT(contrast(window, inScheme(scheme, "map.background")), 20);
        EXPECT_NE(window.saturation(), 0) << "grey";
        EXPECT_EQ(styled(scheme, "QLabel", "color"), inScheme(scheme, "hsi.numeral"));
        EXPECT_EQ(styled(scheme, "QPushButton:default", "background"), inScheme(scheme, chosenKey));
        EXPECT_EQ(styled(scheme, "QPushButton:focus", "border-color"), inScheme(scheme, "hsi.numeral"));
        EXPECT_GT(contrast(styled(scheme, "QPushButton:default", "color"), inScheme(scheme, chosenKey)), 120);
        const QPalette palette = schemePalette(scheme);
        EXPECT_EQ(palette.color(QPalette::Window), window);
        EXPECT_GT(contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)), 80);
    }
}

TEST(SchemeStyle, WhateverASchemeFileHoldsWordsCanBeRead) {
    for (const char* value : {"255,255,255", "0,0,0", "110,110,110"}) {
        ColorScheme scheme;
        const std::vector<ColorScheme::Entry> keys(scheme.entries().begin(), scheme.entries().end());
        for (const auto& [key, color] : keys) scheme.ParseLine(key + "=" + value);
        const QPalette palette = schemePalette(scheme);
        EXPECT_GT(contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 100) << value;
        EXPECT_GT(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 100) << value;
    }
}

TEST(SchemeStyle, DressesWhatIsOpenAtOnce) {
    QuestionSheet sheet(nullptr, Text{1, "Title"}, Text{2, "Words"}, Text{3, "Yes"});
    sheet.show();
    const auto shade = [&sheet] { return sheet.grab().toImage().pixelColor(2, sheet.height() / 2).lightness(); };
    dressProgram(schemeOf("<Night-Flight>"));
    EXPECT_LT(shade(), 40);
    dressProgram(schemeOf(""));
    EXPECT_GT(shade(), 220);
    for (auto* button : sheet.findChildren<QPushButton*>()) {
        EXPECT_GE(button->height(), 48);
        EXPECT_FALSE(button->autoDefault()) << "the focus would fill it";
        button->setFocus();
        EXPECT_EQ(button->isDefault(), button->text() == "Yes") << "whichever has the focus";
    }
}

TEST(TouchStyle, ATickShowsOnADarkSheet) {
    dressProgram(schemeOf("<Glass>"));
    TouchStyle style;
    QCheckBox box;
    box.setStyle(&style);
    const auto brightest = [&box] {
        const QImage picture = box.grab(QRect(0, 0, 30, box.height())).toImage();
        int sum = 0;
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < picture.height(); ++y) sum += picture.pixelColor(x, y).lightness() > 150;
        return sum;
    };
    const int empty = brightest();
    EXPECT_GT(empty, 60) << "its frame";
    box.setChecked(true);
    EXPECT_GT(brightest(), empty + 20) << "and the tick";
    dressProgram(schemeOf(""));
}

}}  // namespace korvel
