#include "app/launcher/Launcher.h"

#include "app/launcher/OptionListWidget.h"
#include "app/launcher/OptionWidget.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class LauncherTest : public testing::Test {
protected:
    LauncherTest() {
        launcher->setQueryTitle("Command:");
        launcher->fit(500, 400);
        launcher->show();
    }
    ~LauncherTest() override { delete launcher; }

    void offer(QStringList const& texts) {
        std::vector<OptionData> options;
        for (QString const& text : texts)
            options.emplace_back(text);
        launcher->setOptions(options);
        launcher->fit(500, 400);
    }
    void offerNumbers(int count) {
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts << QString("row %1").arg(i);
        offer(texts);
    }
    OptionListWidget& list() { return *launcher->getOptionList(); }
    QStringList shown() {
        QStringList texts;
        for (int i = 0; i < list().shownCount(); ++i)
            texts << list().shownRow(i)->getData().text;
        return texts;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(launcher->getEditor(), key, modifiers);
    }
    /// What the launcher answered last, if it is gone.
    QString answer() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(launcher.isNull());
        return answers.isEmpty() ? QString("none") : answers.last().at(0).toString();
    }

    Theme theme;
    QPointer<Launcher> launcher = new Launcher(theme);
    QSignalSpy answers{launcher, &Launcher::launcherResponseSignal};
};

} // namespace

TEST_F(LauncherTest, TheSelectionMovesByRowsAndByFivesAndStopsAtBothEnds) {
    offerNumbers(8);
    struct Step {
        Qt::Key key;
        int selected;
    };
    constexpr Step steps[] = {{Qt::Key_Up, 0},   {Qt::Key_Down, 1},   {Qt::Key_PageDown, 6}, {Qt::Key_PageDown, 7},
                              {Qt::Key_Down, 7}, {Qt::Key_PageUp, 2}, {Qt::Key_PageUp, 0},   {Qt::Key_Down, 1}};
    QSignalSpy changes(launcher, &Launcher::selectionChangedSignal);
    for (Step const& step : steps) {
        press(step.key);
        EXPECT_EQ(list().getSelectedIndex(), step.selected);
        EXPECT_EQ(changes.last().at(0).toString(), QString("row %1").arg(step.selected));
        EXPECT_EQ(launcher->getSelectedResponseString(), QString("row %1").arg(step.selected));
    }
    press(Qt::Key_Enter);
    EXPECT_EQ(answer(), "row 1");
}

TEST_F(LauncherTest, TypingRanksWhatMatchesAndErasingBringsTheOrderBack) {
    QStringList const all{"Hide Row", "Insert Row(s) Before", "Row", "r-o-w", "Column"};
    offer(all);
    press(Qt::Key_Down);
    launcher->setEditorText("row");
    EXPECT_EQ(shown(), (QStringList{"Hide Row", "Insert Row(s) Before", "Row", "r-o-w"}));
    EXPECT_EQ(list().getSelectedIndex(), 0);
    EXPECT_EQ(list().shownRow(0)->getHighlightedText(),
              "<span style=\"color:#ffffff;\">Hide <b style=\"color:#ff0000;\">Row</b></span>");
    EXPECT_EQ(list().shownRow(3)->getHighlightedText().count("<b "), 3);
    launcher->setEditorText("rows");
    EXPECT_EQ(shown(), QStringList{"Insert Row(s) Before"});
    EXPECT_TRUE(list().shownRow(0)->isSelected());
    launcher->setEditorText("  ");
    EXPECT_EQ(shown(), all);
    EXPECT_FALSE(list().shownRow(0)->getHighlightedText().contains("<b "));
    EXPECT_EQ(list().getSelectedIndex(), 0);
    EXPECT_FALSE(list().shownRow(1)->isSelected());
}

TEST_F(LauncherTest, TheRunsOfAMatchAreMarkedOnceEachAndTheTextIsNoMarkup) {
    offer({"a<b>&c"});
    launcher->setEditorText("a<&");
    EXPECT_EQ(list().shownRow(0)->getHighlightedText(),
              "<span style=\"color:#ffffff;\"><b style=\"color:#ff0000;\">a&lt;</b>b&gt;"
              "<b style=\"color:#ff0000;\">&amp;</b>c</span>");
}

TEST_F(LauncherTest, WithoutAMatchEnterAnswersTheTypedText) {
    offer({"one", "two"});
    launcher->setEditorText("xyz");
    EXPECT_EQ(list().getSelectedIndex(), -1);
    press(Qt::Key_Down);
    EXPECT_EQ(list().getSelectedIndex(), -1);
    press(Qt::Key_Return);
    EXPECT_EQ(answer(), "xyz");
}

TEST_F(LauncherTest, AListWithoutAMatchSaysSoInItsPlace) {
    launcher->setOptions({OptionData("one"), OptionData("two")}, "No command matches.");
    launcher->fit(500, 400);
    int const rowsHeight = list().contentHeight();
    EXPECT_EQ(list().shownNotice(), "");
    launcher->setEditorText("xyz");
    EXPECT_EQ(list().shownNotice(), "No command matches.");
    launcher->fit(500, 400);
    EXPECT_GT(list().height(), 0) << "there is room for it";
    launcher->setEditorText("");
    EXPECT_EQ(list().shownNotice(), "");
    EXPECT_EQ(list().contentHeight(), rowsHeight);
}

TEST_F(LauncherTest, AListCanBeginAtAnyOfItsRowsAndShowsIt) {
    offerNumbers(100);
    launcher->selectOption("row 60");
    launcher->fit(500, 400);
    EXPECT_EQ(launcher->getSelectedResponseString(), "row 60");
    EXPECT_TRUE(list().shownRow(60)->isVisible());
    EXPECT_FALSE(list().shownRow(0)->isVisible());
    launcher->selectOption("no row");
    press(Qt::Key_Down);
    EXPECT_EQ(launcher->getSelectedResponseString(), "row 61");
}

TEST_F(LauncherTest, AClickAnswersItsRowByItsResponse) {
    OptionData two("two", "the second");
    two.response = "2";
    launcher->setOptions({OptionData("one"), two});
    launcher->fit(500, 400);
    QTest::qWait(0);
    QTest::mouseClick(const_cast<OptionWidget*>(list().shownRow(1)), Qt::LeftButton);
    EXPECT_EQ(answer(), "2");
}

TEST_F(LauncherTest, RowsInSightAreFilledAtOnceAndTheOthersWhenThereIsTime) {
    offerNumbers(200);
    EXPECT_TRUE(list().shownRow(0)->isFilled());
    EXPECT_FALSE(list().shownRow(199)->isFilled());
    launcher->setEditorText("199"); // comes in sight before its turn
    EXPECT_TRUE(list().shownRow(0)->isFilled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return list().isFilled(); }));
}

TEST_F(LauncherTest, TheListScrollsWithTheSelectionAndNeverPastItsRoom) {
    offerNumbers(50);
    QTest::qWait(0);
    EXPECT_LE(launcher->height(), 400);
    for (int i = 0; i < 10; ++i)
        press(Qt::Key_PageDown);
    EXPECT_EQ(list().verticalScrollBar()->value(), list().verticalScrollBar()->maximum());
    EXPECT_GT(list().verticalScrollBar()->maximum(), 0);
    launcher->setEditorText("row");
    EXPECT_GT(list().verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(list().verticalScrollBar()->value(), 0) << "a new list is shown from its start";
    int const full = launcher->height();
    QSignalSpy changes(launcher, &Launcher::heightChangedSignal);
    launcher->setEditorText("row 4");
    launcher->setEditorText("row 49");
    EXPECT_FALSE(changes.isEmpty());
    launcher->fit(500, 400);
    EXPECT_LT(launcher->height(), full);
}

TEST_F(LauncherTest, LeftAndRightGoToTheEndsOfWhatIsSelected) {
    struct Case {
        Qt::Key key;
        int cursor;
    };
    for (Case const& each : {Case{Qt::Key_Left, 2}, Case{Qt::Key_Right, 5}}) {
        launcher->setEditorText("0123456");
        launcher->setEditorSelection(2, 3);
        press(each.key);
        EXPECT_FALSE(launcher->getEditor()->hasSelectedText());
        EXPECT_EQ(launcher->getEditor()->cursorPosition(), each.cursor);
    }
}

TEST_F(LauncherTest, AnAnswerTellsTheStateOfTheEditorAndMayLeaveTheLauncherOpen) {
    QSignalSpy states(launcher, &Launcher::launcherResponseWithStateSignal);
    QSignalSpy left(launcher, &Launcher::launcherLeftSignal);
    QSignalSpy back(launcher, &Launcher::goBackSignal);
    launcher->setCloseOnResponse(false);
    launcher->setEditorText("a-name.csv");
    launcher->setEditorSelection(2, 4);
    press(Qt::Key_Return);
    EXPECT_EQ(states.value(0), (QVariantList{"a-name.csv", 2, 4, 6}));
    EXPECT_TRUE(left.isEmpty());
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(back.size(), 1);
    EXPECT_EQ(launcher->getEditor()->text(), "a-name.csv");
    EXPECT_EQ(launcher->getEditor()->accessibleName(), "Command:");
}

TEST_F(LauncherTest, TheRowOfTheCurrentFileTellsWhichItIs) {
    launcher->setOptions({OptionData("(Current File)", "a.csv"), OptionData("b.csv", "b")});
    launcher->onCurrentTableChanged("c.csv");
    EXPECT_EQ(list().shownRow(0)->getData().description, "c.csv");
    EXPECT_EQ(list().shownRow(1)->getData().description, "b");
}
