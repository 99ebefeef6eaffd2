#include "appearance/Theme.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double luminance(QColor const& color) {
    return 0.2126 * color.redF() + 0.7152 * color.greenF() + 0.0722 * color.blueF();
}

} // namespace

TEST(Theme, EveryThemeOfTheListHasAllItsColorsAndReadableText) {
    ASSERT_EQ(Theme::getNamesList(), QStringList({"Dark", "Light", "Dracula", "Solarized Dark", "Solarized Light"}));
    for (QString const& name : Theme::getNamesList()) {
        Theme const theme = Theme::convertStringToTheme(name.toUpper());
        EXPECT_EQ(theme.getName(), name);
        for (int key = 0; key < static_cast<int>(ThemeColor::Count); ++key) {
            EXPECT_TRUE(theme.color(static_cast<ThemeColor>(key)).isValid()) << qPrintable(name) << " " << key;
        }
        for (QColor const& ground :
             {theme.getBackground1Color(), theme.getBackground2Color(), theme.getBackground3Color(),
              theme.getCellColor(), theme.getCellShade2Color(), theme.getHeaderCellColor(),
              theme.getSelectedCellColor(), theme.getMainCellColor(), theme.getSelectedItemColor()}) {
            EXPECT_GT(std::abs(luminance(theme.getTextColor()) - luminance(ground)), 0.35)
                << qPrintable(name) << " " << qPrintable(ground.name());
        }
    }
    EXPECT_EQ(Theme(QString("no such theme")).getName(), "Dark");
    EXPECT_EQ(Theme().getMainCellColor(), QColor(0x77, 0, 0x77));
    EXPECT_EQ(Theme().getTranslucentMainCellColor().alpha(), 40);
    EXPECT_EQ(Theme::lightTheme().getBackground1Color(), QColor("#f0f0f0"));
    EXPECT_EQ(Theme::draculaTheme().getTextColor(), QColor("#f8f8f2"));
    EXPECT_EQ(Theme::solarizedLight().getBackground1Color(), QColor("#fdf6e3"));
}

TEST(Theme, TheStyleSheetUsesItsColorsAndLeavesNoKeyUnfilled) {
    Theme theme;
    theme.setBackground2Color(QColor("#123456"));
    QString const sheet = theme.getStyleSheet();
    EXPECT_TRUE(sheet.contains("QStatusBar { background-color: #123456; }"));
    EXPECT_FALSE(sheet.contains("Color}"));
    EXPECT_EQ(sheet.count('{'), sheet.count('}'));
}
