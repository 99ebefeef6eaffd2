#include "view/MsgBox.h"

#include "tests/support/HeldClock.h"
#include "view/KeyRest.h"
#include "view/ProgressDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

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

TEST(MsgBoxTest, NoKeyAnswersAQuestionFromOutsideBeforeTheKeysWereStill) {
    struct Press {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        char const* answer;
    };
    for (bool const outside : {true, false}) {
        for (Press const& press : {Press{Qt::Key_R, {}, "&Reload"}, Press{Qt::Key_R, Qt::AltModifier, "&Reload"},
                                   Press{Qt::Key_Return, {}, "&Reload"}, Press{Qt::Key_Space, {}, "&Reload"},
                                   Press{Qt::Key_I, {}, "&Ignore"}, Press{Qt::Key_Escape, {}, "&Ignore"}}) {
            HeldClock clock;
            MsgBox box;
            box.setText("?");
            box.setDefaultButton(box.addButton("&Reload", QMessageBox::AcceptRole));
            box.addButton("&Ignore", QMessageBox::RejectRole);
            auto const type = [&](bool repeated = false) {
                QWidget* const target = box.focusWidget() != nullptr ? box.focusWidget() : &box;
                if (repeated) {
                    QKeyEvent again(QEvent::KeyPress, press.key, press.modifiers, QString(), true);
                    QCoreApplication::sendEvent(target, &again);
                } else {
                    QTest::keyClick(target, press.key, press.modifiers);
                }
            };
            auto const isUnanswered = [&] {
                QList<QAbstractButton*> const buttons = box.buttons();
                return box.isVisible() && std::none_of(buttons.begin(), buttons.end(),
                                                       [](QAbstractButton const* each) { return each->isDown(); });
            };
            QTimer::singleShot(0, &box, [&] {
                ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
                type();
                if (!outside)
                    return;
                EXPECT_TRUE(isUnanswered()) << press.key;
                clock.pass(TypingGuard::stillMs - 1);
                type();
                EXPECT_TRUE(isUnanswered()) << press.key;
                clock.pass(TypingGuard::stillMs);
                type(true); // held down since before
                EXPECT_TRUE(isUnanswered()) << press.key;
                clock.pass(TypingGuard::stillMs);
                type();
            });
            std::optional<FromOutside> acting;
            if (outside)
                acting.emplace();
            box.exec();
            EXPECT_EQ(box.clickedButton()->text(), press.answer) << press.key;
        }
    }
    HeldClock const clock;
    MsgBox box;
    QPushButton* const button = box.addButton("&Reload", QMessageBox::AcceptRole);
    QTimer::singleShot(0, &box, [&] { QTest::mouseClick(button, Qt::LeftButton); });
    FromOutside const acting;
    box.exec();
    EXPECT_EQ(box.clickedButton(), button);
}

TEST(MsgBoxTest, OneThatAKeyOfATextBringsUpTakesNoneEither) {
    HeldClock clock;
    QObject owner;
    TypingGuard::addText(&owner, [] { return false; });
    auto const isNeededAfter = [&](Qt::KeyboardModifiers modifiers, int ms) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_W, modifiers);
        QCoreApplication::sendEvent(&owner, &event);
        clock.pass(ms);
        return KeyRest::isNeeded();
    };
    EXPECT_FALSE(KeyRest::isNeeded());
    EXPECT_FALSE(isNeededAfter(Qt::NoModifier, TypingGuard::stillMs));
    EXPECT_TRUE(isNeededAfter(Qt::NoModifier, TypingGuard::stillMs - 1));
    clock.pass(1);
    EXPECT_TRUE(isNeededAfter(Qt::ShiftModifier, 1));
    EXPECT_FALSE(isNeededAfter(Qt::ControlModifier, 1)) << "asked for, at the end of a text";
}

TEST(ProgressDialogTest, IsCanceledByNoKeyOfATextAndFromOutsideByNoneBeforeTheKeysWereStill) {
    for (bool const outside : {true, false}) {
        HeldClock clock;
        std::optional<FromOutside> acting;
        if (outside)
            acting.emplace();
        ProgressDialog dialog("Sorting ...", Theme(), nullptr);
        acting.reset();
        bool canceled = false;
        QObject::connect(&dialog, &QDialog::rejected, [&] { canceled = true; });
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto const press = [&](Qt::Key key) { QTest::keyClick(dialog.focusWidget(), key); };
        clock.pass(TypingGuard::stillMs - 1);
        press(Qt::Key_Escape);
        EXPECT_EQ(canceled, !outside);
        canceled = false;
        dialog.show();
        clock.pass(TypingGuard::stillMs);
        for (Qt::Key const key : {Qt::Key_C, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            press(key);
        EXPECT_FALSE(canceled);
        press(Qt::Key_Escape);
        EXPECT_TRUE(canceled);
    }
}
