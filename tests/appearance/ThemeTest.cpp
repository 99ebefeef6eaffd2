#include "appearance/Theme.h"

#include <gtest/gtest.h>

TEST(Theme, TheDarkThemeHasAValidColorForEveryKey) {
    Theme const theme;
    EXPECT_EQ(theme.getName(), "Dark");
    for (int key = 0; key < static_cast<int>(ThemeColor::Count); ++key) {
        EXPECT_TRUE(theme.color(static_cast<ThemeColor>(key)).isValid()) << key;
    }
    EXPECT_EQ(theme.getMainCellColor(), QColor(0x77, 0, 0x77));
    EXPECT_EQ(theme.getTranslucentMainCellColor().alpha(), 40);
}

TEST(Theme, TheStyleSheetUsesItsColorsAndLeavesNoKeyUnfilled) {
    Theme theme;
    theme.setBackground2Color(QColor("#123456"));
    QString const sheet = theme.getStyleSheet();
    EXPECT_TRUE(sheet.contains("QStatusBar { background-color: #123456; }"));
    EXPECT_FALSE(sheet.contains("Color}"));
    EXPECT_EQ(sheet.count('{'), sheet.count('}'));
}
