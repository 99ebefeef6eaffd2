#include "app/NoticeLine.h"

#include "app/StatusBar.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
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
    EXPECT_EQ(heightAt(400), plain);
    EXPECT_GE(heightAt(40), 2 * bar->fontMetrics().lineSpacing());
    EXPECT_EQ(heightAt(400), plain);
    heightAt(40);
    bar->clearMessage();
    EXPECT_EQ(heightAt(40), plain);
}
