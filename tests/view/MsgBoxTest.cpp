#include "view/MsgBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

/// The contrast of two colours from 1 to 21, as it is defined for texts on the web.
double contrast(QColor const& a, QColor const& b) {
    auto const luminance = [](QColor const& color) {
        auto const part = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    double const first = luminance(a);
    double const second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

TEST(MsgBoxTest, NoLabelOfAButtonIsCutWhateverTheFont) {
    QFont const before = QApplication::font();
    for (int const size : {6, 12, 24, 40}) {
        QFont font = before;
        font.setPointSize(size);
        QApplication::setFont(font);
        MsgBox box;
        box.setTheme(Theme());
        box.setText("?");
        QPushButton* const told = box.addButton("Open as &Read-Only", QMessageBox::AcceptRole);
        box.addButton("Do&n't Save", QMessageBox::DestructiveRole);
        box.conditionButtons();
        constexpr int least = 130;
        MsgBox::enlarge(*told, {least, 0});
        box.show();
        for (QAbstractButton* const button : box.buttons()) {
            QString const text = button->text().remove('&');
            QStyleOptionButton option;
            option.initFrom(button);
            QRect const room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
            EXPECT_GE(room.width(), button->fontMetrics().horizontalAdvance(text)) << qPrintable(text) << size;
            EXPECT_GE(room.height(), button->fontMetrics().height()) << qPrintable(text) << size;
        }
        EXPECT_GE(told->width(), least);
    }
    QApplication::setFont(before);
}

TEST(MsgBoxTest, ACheckBoxCanBeSeenAndReadInEveryTheme) {
    for (QString const& name : Theme::getNamesList()) {
        Theme const theme = Theme::convertStringToTheme(name);
        MsgBox box;
        box.setTheme(theme);
        box.setText("?");
        box.addButton(QMessageBox::Ok);
        auto* const check = new QCheckBox("Don't ask me again", &box);
        box.setCheckBox(check);
        box.show();
        QStyleOptionButton option;
        option.initFrom(check);
        QRect const indicator = check->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, check);
        QImage const empty = check->grab(indicator).toImage();
        check->setChecked(true);
        QImage const checked = check->grab(indicator).toImage();
        QColor const behind = theme.getBackground1Color();
        double edge = 1;
        double mark = 1;
        for (int x = 0; x < empty.width(); ++x) {
            for (int y = 0; y < empty.height(); ++y) {
                edge = std::max(edge, contrast(empty.pixelColor(x, y), behind));
                mark = std::max(mark, contrast(checked.pixelColor(x, y), empty.pixelColor(x, y)));
            }
        }
        EXPECT_GE(edge, 3) << qPrintable(name);
        EXPECT_GE(mark, 3) << qPrintable(name);
    }
}
