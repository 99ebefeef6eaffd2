#include "app/launcher/PromptChain.h"

#include "app/launcher/PrevOptionWidget.h"
#include "tests/app/WindowFixture.h"

#include <QPointer>
#include <QScrollBar>

namespace {

class PromptChainTest : public WindowFixture {
protected:
    PromptChainTest() {
        window.resize(800, 600);
        window.show();
    }

    /// A step that notes what becomes of it, and then asks for `next` if there is one.
    PromptStep step(QString const& title, std::function<PromptStep()> const& next = {}) {
        PromptStep made;
        made.title = title;
        made.closed = [this, title] { log << "closed " + title; };
        made.carryOut = [this, title, next](QString const& answer, PromptAsker& asker) {
            log << title + answer;
            if (next)
                asker.ask(next());
        };
        return made;
    }
    PromptStep threeSteps() {
        return step("A:", [this] { return step("B:", [this] { return step("C:"); }); });
    }
    QStringList strips() const {
        QStringList names;
        for (auto const* const strip : window.getPaneView()->findChildren<PrevOptionWidget*>()) {
            if (strip->isVisible())
                names << strip->accessibleName().section(": ", 1);
        }
        return names;
    }
    QStringList takeLog() { return std::exchange(log, {}); }

    QStringList log;
};

} // namespace

TEST_F(PromptChainTest, ABadAnswerIsToldAndStandsInTheSamePromptAgain) {
    PromptStep number = step("Number:");
    number.complaint = [](QString const& answer) { return answer == "1" ? "" : "Must be 1."; };
    window.ask(number);
    box.next("OK");
    prompts.answer("Number:", "one");
    EXPECT_EQ(box.texts(), QStringList{"Must be 1."});
    prompts.expect("Number:");
    EXPECT_EQ(prompts.editorText(), "one");
    EXPECT_EQ(takeLog(), QStringList());
    prompts.answer("Number:", "1");
    EXPECT_EQ(takeLog(), (QStringList{"closed Number:", "Number:1"}));
    window.ask(number);
    box.next("OK", [this] { window.closeFile(window.getActiveTable()); });
    prompts.answer("Number:", "two");
    EXPECT_EQ(window.getPaneView()->getLauncher(), nullptr) << "its table has gone";
    EXPECT_EQ(takeLog(), QStringList{"closed Number:"});
}

TEST_F(PromptChainTest, ASecondEnterOnThePromptThatHasGoneIsNoAnswer) {
    window.ask(step("A:"));
    QPointer<Launcher> const launcher = window.getPaneView()->getLauncher();
    prompts.answer("A:", "1");
    takeLog();
    ASSERT_FALSE(launcher.isNull()); // it takes leave before it goes
    QTest::keyClick(launcher->getEditor(), Qt::Key_Return);
    emit launcher->launcherResponseWithStateSignal("1", 0, 0, 1);
    EXPECT_EQ(takeLog(), QStringList());
}

TEST_F(PromptChainTest, AnswersStandAboveTheNextQuestionAndAreTheWayBack) {
    window.ask(threeSteps());
    prompts.press(Qt::Key_Minus, Qt::ControlModifier); // nothing before the first
    prompts.answer("A:", "1");
    prompts.answer("B:", "2");
    prompts.expect("C:");
    EXPECT_EQ(strips(), (QStringList{"A: 1", "B: 2"}));
    takeLog();

    prompts.press(Qt::Key_Minus, Qt::ControlModifier);
    prompts.expect("B:");
    EXPECT_EQ(prompts.editorText(), "2");
    EXPECT_EQ(strips(), QStringList{"A: 1"});
    EXPECT_EQ(takeLog(), QStringList{"closed C:"});
    prompts.answer("B:", "3");
    EXPECT_EQ(strips(), (QStringList{"A: 1", "B: 3"}));

    auto* const first = window.getPaneView()->findChildren<PrevOptionWidget*>().first();
    for (auto* const strip : window.getPaneView()->findChildren<PrevOptionWidget*>()) {
        if (strip->isVisible() && strip->y() <= first->y())
            QTest::mouseClick(strip, Qt::LeftButton);
    }
    prompts.expect("A:");
    EXPECT_EQ(prompts.editorText(), "1");
    EXPECT_EQ(strips(), QStringList());
    for (char const* const title : {"A:", "B:", "C:"})
        prompts.answer(title, "x");
    EXPECT_EQ(strips(), QStringList());
    EXPECT_TRUE(window.getActiveTable()->hasFocus() || window.focusWidget() == window.getActiveTable());
}

TEST_F(PromptChainTest, EscapeEndsAllOfItAndShowsThePlaceFromBefore) {
    window.getActiveTable()->setMainCell(Range(0, 0, RangeIndexType::Model));
    QScrollBar* const bar = window.getActiveTable()->verticalScrollBar();
    bar->setMaximum(100);
    bar->setValue(7);
    window.ask(threeSteps());
    prompts.answer("A:", "1");
    bar->setValue(20);
    takeLog();
    prompts.leave("B:");
    EXPECT_EQ(takeLog(), QStringList{"closed B:"});
    EXPECT_EQ(strips(), QStringList());
    EXPECT_EQ(bar->value(), 7);
    EXPECT_EQ(window.getPaneView()->getLauncher(), nullptr);
}

TEST_F(PromptChainTest, FeedbackFollowsTheEntryFromTheStart) {
    QStringList heard;
    PromptStep echo = step("Echo:");
    echo.feedback = [&heard](QString const& text) { return heard << "<" + text + ">", heard.last(); };
    window.ask(echo);
    prompts.type("Echo:", "ab");
    EXPECT_EQ(heard, (QStringList{"<>", "<ab>"}));
    prompts.leave("Echo:");
}

TEST_F(PromptChainTest, ATableThatGoesTakesItsQuestionsAlongAndAnotherTableDoesNot) {
    TableView* const first = window.getActiveTable();
    window.commandNewFile();
    TableView* const second = window.getActiveTable();
    window.ask(threeSteps());
    prompts.answer("A:", "1");
    window.closeFile(first);
    prompts.expect("B:");
    takeLog();
    window.closeFile(second);
    EXPECT_FALSE(window.getPrompts()->isOpen());
    EXPECT_EQ(takeLog(), QStringList{"closed B:"});
}

TEST_F(PromptChainTest, AnAnswerMayCloseItsTableOrBeginAnotherChain) {
    PromptStep closing = step("Close?");
    closing.carryOut = [this](QString const&, PromptAsker& asker) {
        window.closeFile(window.getActiveTable());
        asker.ask(step("After:"));
    };
    window.ask(closing);
    prompts.answer("Close?", "yes");
    prompts.expect("After:");
    EXPECT_EQ(strips(), QStringList{"Close? yes"});
    window.ask(step("Other:"));
    EXPECT_EQ(strips(), QStringList());
    EXPECT_TRUE(takeLog().contains("closed After:"));
    prompts.answer("Other:", "x");
}

TEST_F(PromptChainTest, TheCommandLauncherRunsWhatIsLiveAndNothingElse) {
    window.commandCommandLauncher();
    EXPECT_TRUE(prompts.options().contains("Data/Insert: Insert Row(s) Before"));
    EXPECT_FALSE(prompts.options().contains("File: Save Visible Data As")); // nothing is concealed
    prompts.type("Command:", "Toggle Read-Only");
    OptionListWidget const& list = *window.getPaneView()->getLauncher()->getOptionList();
    EXPECT_EQ(list.shownRow(0)->getData().valuePill,
              window.getActiveTable()->getSettings().displayText(SettingType::ReadOnly));
    EXPECT_NE(list.shownRow(0)->getData().valuePill, "");
    int const rows = window.getActiveTable()->tableModel()->rowCountRaw();
    prompts.choose("Command:", "Data/Insert: Insert Row(s) Before");
    EXPECT_EQ(window.getActiveTable()->tableModel()->rowCountRaw(), rows + 1);
    window.commandUndo();
    window.commandCommandLauncher();
    prompts.answer("Command:", "there is no such command");
    EXPECT_EQ(window.getActiveTable()->tableModel()->rowCountRaw(), rows);
}

TEST_F(PromptChainTest, GoToFileOffersTheTabsOfTheWindow) {
    TableView* const first = window.getActiveTable();
    window.commandNewFile();
    EXPECT_NE(window.getActiveTable(), first);
    window.commandGoToFile();
    EXPECT_EQ(prompts.options().size(), 2);
    prompts.press(Qt::Key_Return);
    EXPECT_EQ(window.getActiveTable(), first);
}

TEST_F(PromptChainTest, LabelsOfTheStatusBarOfferTheCommandsOfTheirTopic) {
    struct Case {
        StatusBar::Label label;
        char const* title;
        char const* option;
    };
    constexpr Case cases[] = {
        {StatusBar::Label::TableSize, "Table Dimensions Commands:", "View/Table Size: Set Number of Buffer Rows"},
        {StatusBar::Label::Filters, "Filter Commands:", "Data/Filter: Add Filter"},
        {StatusBar::Label::Delimiter, "Delimiter Commands:", "File/Save Options: Set Delimiter for File Save"},
        {StatusBar::Label::Encoding, "Encoding Commands:", "File/Save Options: Set Encoding for File Save"},
        {StatusBar::Label::LineEnding, "Line Ending Commands:", "File/Save Options: Set Line Ending for File Save"},
    };
    for (Case const& each : cases) {
        emit window.getStatusBar()->labelPressedSignal(each.label);
        EXPECT_TRUE(prompts.options().contains(each.option)) << prompts.options().join(", ").toStdString();
        prompts.leave(each.title);
    }
    emit window.getStatusBar()->labelPressedSignal(StatusBar::Label::Selection);
    prompts.expect("");
}

TEST_F(PromptChainTest, EscapeWithoutALauncherReducesASelectionToItsMainCell) {
    window.getActiveTable()->selectEntireTable();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.getActiveTable()->tableModel()->isSelectionMultiCell());
}
