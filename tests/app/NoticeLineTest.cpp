#include "app/NoticeLine.h"

#include "app/StatusBar.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

TEST(NoticeLine, IsReadableAndOperableInANarrowWindow) {
    QWidget window;
    window.setMinimumSize(1, 1);
    auto* const column = new QVBoxLayout(&window);
    auto* const line = new NoticeLine("An Action with a Name", &window);
    column->addStretch(1);
    column->addWidget(line);
    QString const path = "/a folder/" + QString(400, 'm') + "/a.csv";
    line->tell("This is told of a file: %1", {path});
    int const letter = line->fontMetrics().averageCharWidth();
    window.resize(400 * letter, 100 * letter);
    window.show();
    auto const* const label = line->findChild<QLabel*>();
    for (int const letters : {400, 60, 40}) {
        SCOPED_TRACE(letters);
        window.resize(letters * letter, 100 * letter);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::sendPostedEvents();
        EXPECT_EQ(window.width(), letters * letter);
        EXPECT_LE(line->geometry().right(), window.width());
        EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        for (QPushButton const* const button : line->findChildren<QPushButton*>()) {
            EXPECT_GE(button->width(), button->minimumSizeHint().width());
            EXPECT_LE(button->geometry().right(), line->width());
            EXPECT_FALSE(button->geometry().intersects(label->geometry()));
        }
        EXPECT_TRUE(label->text().endsWith("a.csv")) << qPrintable(label->text());
        EXPECT_LT(label->text().size(), path.size());
        EXPECT_TRUE(label->toolTip().contains(path));
        EXPECT_EQ(line->text(), "This is told of a file: " + path);
    }
}

TEST(NoticeLine, LetsNoTypedKeyReachAShortcutOfTheWindow) {
    QWidget window;
    auto* const line = new NoticeLine(QString(), &window);
    line->tell("Told of %1", {"a.csv"});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* const dismiss = line->findChild<QPushButton*>();
    for (QWidget* const focused : {static_cast<QWidget*>(line), static_cast<QWidget*>(dismiss)}) {
        for (Qt::Key const key :
             {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Insert, Qt::Key_F2, Qt::Key_1, Qt::Key_A}) {
            int commands = 0;
            QShortcut const plain(QKeySequence(key), &window, [&] { ++commands; });
            QShortcut const withControl(QKeySequence(int(Qt::CTRL) | key), &window, [&] { commands += 10; });
            focused->setFocus();
            QTest::keyClick(focused, key);
            EXPECT_EQ(commands, 0) << key;
            QTest::keyClick(focused, key, Qt::ControlModifier);
            EXPECT_EQ(commands, 10) << key;
        }
    }
    int left = 0;
    QObject::connect(line, &NoticeLine::leftSignal, [&] { ++left; });
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(left, 1);
    QTest::keyClick(line, Qt::Key_Tab);
    EXPECT_TRUE(dismiss->hasFocus());
    QTest::keyClick(dismiss, Qt::Key_Space);
    EXPECT_TRUE(line->isHidden());
}

TEST(StatusBar, AMessageStandsWholeInANarrowWindow) {
    QWidget window;
    window.setMinimumSize(1, 1);
    auto* const column = new QVBoxLayout(&window);
    auto* const bar = new StatusBar(&window);
    column->addStretch(1);
    column->addWidget(bar);
    int const letter = bar->fontMetrics().averageCharWidth();
    auto const heightAt = [&](int letters) {
        window.resize(letters * letter, 100 * letter);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::sendPostedEvents();
        return bar->height();
    };
    window.show();
    int const plain = heightAt(400);
    bar->showMessage("It tells of something in words that fill more than two lines of a narrow window.");
    int const twoLines = 2 * bar->fontMetrics().lineSpacing();
    EXPECT_LT(heightAt(400), twoLines);
    EXPECT_GE(heightAt(40), twoLines);
    EXPECT_LT(heightAt(400), twoLines);
    heightAt(40);
    bar->clearMessage();
    EXPECT_EQ(heightAt(40), plain);
}
